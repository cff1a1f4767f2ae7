/// The demo survey's noise: always the same numbers.
#ifndef DEMONOISE_H
#define DEMONOISE_H

#include <cstdint>

/// Normal deviates from xorshift64 with the shifts 13, 7, 17 (Marsaglia 2003): the sum of twelve uniform
/// numbers less 6, which has the mean 0 and the variance 1.
class DemoNoise
{
public:
    static constexpr uint64_t seed = 20240601;

    /// Uniform in [0, 1).
    double uniform()
    {
        _state ^= _state << 13;
        _state ^= _state >> 7;
        _state ^= _state << 17;
        return double(_state >> 11) * 0x1p-53;
    }
    double normal()
    {
        double sum = 0.0;
        for (int i = 0; i < 12; ++i) sum += uniform();
        return sum - 6.0;
    }

private:
    uint64_t _state = seed;
};

#endif
