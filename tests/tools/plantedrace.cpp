/// Two threads that write one number without a lock: the thread sanitizer must say so, or its silence elsewhere means
/// nothing. With the argument "reduction" the same sum in the way that OpenMP orders, which it must not report.
#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    const bool isOrdered = argc > 1 && std::strcmp(argv[1], "reduction") == 0;
    int sum = 0;
    if (isOrdered) {
#pragma omp parallel for num_threads(4) reduction(+ : sum)
        for (int i = 0; i < 4000; ++i) sum += i % 3;
    } else {
#pragma omp parallel for num_threads(4)
        for (int i = 0; i < 4000; ++i) sum += i % 3;
    }
    std::printf("%d\n", sum);
}
