/// What this machine's memory gives: the yardstick beside which all other figures stand.
#include "bench/limits.h"
#include "bench/ratio.h"

#include <cstdio>
#include <vector>

int main()
{
    const size_t nBytes = size_t(256) << 20;
    std::vector<char> from(nBytes, 1), to(nBytes, 2);
    std::vector<double> seconds;
    for (int i = 0; i < 11; ++i) seconds.push_back(secondsOf([&] { plainCopy(to.data(), from.data(), nBytes); }));
    std::nth_element(seconds.begin(), seconds.begin() + 5, seconds.end());
    std::printf("memcpy of 256 MiB: %.0f ns, %.2f GB/s\n", seconds[5] * 1e9, double(nBytes) / seconds[5] * 1e-9);
    return to[nBytes / 2] == 1 ? 0 : 1;
}
