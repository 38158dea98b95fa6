#include "page.c"

int test_absent(void);
VXK_PLUGIN_ENTRY int test_needs(void);
int test_needs(void)
{
    return test_absent();
}
