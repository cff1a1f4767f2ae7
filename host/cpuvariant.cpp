#include "host/cpuvariant.h"

#include <atomic>

bool hasCpuV3()
{
    return __builtin_cpu_supports("x86-64-v3");
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
