/* A library that the module which needs it does not find. */
__attribute__((visibility("default"))) int test_absent(void);
int test_absent(void)
{
    return 1;
}
