#include "platform/base/matrix.h"

void vx_matrix4x4_init_matrix3x3(Tvx_matrix4x4 *space, Tvx_matrix3x3 const *plane)
{
    if (!space || !plane)
        return;
    auto const &m = plane->m;
    *space = {{{m[0][0], m[0][1], 0, m[0][2]},
               {m[1][0], m[1][1], 0, m[1][2]},
               {0, 0, 1, 0},
               {m[2][0], m[2][1], 0, m[2][2]}}};
}
