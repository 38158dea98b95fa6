#include "styles/libraries/vxk_lib_styles.h"

// The browser of the style libraries is not part of the library: nothing opens, and no style is taken.

bool vxk_lib_styles_get_pnt(void * /*style*/)
{
    return false;
}

bool vxk_lib_styles_get_pln(void * /*style*/)
{
    return false;
}

bool vxk_lib_styles_get_pgn(void * /*style*/)
{
    return false;
}
