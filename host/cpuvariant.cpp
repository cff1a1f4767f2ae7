#include "host/cpuvariant.h"

#include <atomic>

bool hasCpuV3()
{
#ifdef __clang__  // clang 14 doesn't know the level by name; no processor has these and lacks the rest of it
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
           __builtin_cpu_supports("fma");
#else
    return __builtin_cpu_supports("x86-64-v3");
#endif
}

static std::atomic<CpuVariant> chosen = hasCpuV3() ? CpuVariant::V3 : CpuVariant::Plain;

CpuVariant cpuVariant()
{
    return chosen.load(std::memory_order_relaxed);
}

void useCpuVariant(CpuVariant variant)
{
    chosen = variant == CpuVariant::V3 && !hasCpuV3() ? CpuVariant::Plain : variant;
}
