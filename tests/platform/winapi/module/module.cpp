/// A module that the library tests load; it stands in the bundle folder but is no bundle.
extern "C" __attribute__((visibility("default"))) int vx_test_module_twice(int value)
{
    return value * 2;
}
