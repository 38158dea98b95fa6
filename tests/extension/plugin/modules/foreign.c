/* A module of somebody else's, which would be noticed if it were loaded. */
#include <stdio.h>
#include <stdlib.h>

__attribute__((constructor)) static void start(void)
{
    const char *path = getenv("VX_TEST_FOREIGN_RAN");
    FILE *file = path ? fopen(path, "a") : NULL;
    if (file) {
        fputs("ran\n", file);
        fclose(file);
    }
}

__attribute__((visibility("default"))) int foreign_work(int value);
int foreign_work(int value)
{
    return value + 1;
}
