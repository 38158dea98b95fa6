#include "styles/complex/edit_cpx_style.h"

// The editor of style layers is not part of the library: nothing opens, and nobody accepts.

bool vx_cpx_style_editor_exists()
{
    return false;
}

bool vx_edit_cpx_pnt_style(void * /*style*/)
{
    return false;
}

bool vx_edit_cpx_pln_style(void * /*style*/)
{
    return false;
}

bool vx_edit_cpx_pgn_style(void * /*style*/)
{
    return false;
}
