/// A library that is not found where the bundle that needs it is loaded.
extern "C" __attribute__((visibility("default"))) int vx_test_absent()
{
    return 1;
}
