#include "layer_apart.h"

#include "dataset.h"

#include <ogrsf_frmts.h>

#include <vector>

namespace vx::gdal {
layer_apart open_apart(dataset const &set, char const *name, int field)
{
    std::shared_ptr<GDALDataset> apart(set.open_again(GDAL_OF_VECTOR));
    OGRLayer *const layer = apart ? apart->GetLayerByName(name) : nullptr;
    if (!layer)
        return {};
    std::vector<char const *> ignored{"OGR_STYLE"};
    if (field != c_no_field)
        ignored.push_back("OGR_GEOMETRY");
    for (int i = 0; i < layer->GetLayerDefn()->GetFieldCount(); ++i)
        if (i != field)
            ignored.push_back(layer->GetLayerDefn()->GetFieldDefn(i)->GetNameRef());
    ignored.push_back(nullptr);
    if (layer->TestCapability(OLCIgnoreFields))
        (void)layer->SetIgnoredFields(ignored.data());
    return {std::move(apart), layer};
}
} // namespace vx::gdal
