#include <dlfcn.h>

#include <chrono>
#include <cstdio>

/// Loads the named libraries in order and prints what each takes beyond those before it.
int main(int argc, char** argv)
{
    using Clock = std::chrono::steady_clock;
    for (int i = 1; i < argc; ++i) {
        const auto start = Clock::now();
        if (!::dlopen(argv[i], RTLD_NOW)) {
            std::fprintf(stderr, "%s\n", ::dlerror());
            return 1;
        }
        std::printf("%-60s %8.3f ms\n", argv[i],
                    std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    return 0;
}
