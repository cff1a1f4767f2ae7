/// Hot loops are compiled twice, for the plain x86-64 and for x86-64-v3, and chosen when they run: one
/// build serves every machine. Both give the same bits.
#ifndef CPUVARIANT_H
#define CPUVARIANT_H

enum class CpuVariant { Plain, V3 };

/// The variant in use: the best that the machine has, unless a test asked for another.
CpuVariant cpuVariant();
/// For tests: uses this variant from now on. V3 on a machine without it stays Plain.
void useCpuVariant(CpuVariant variant);
/// True if the machine runs x86-64-v3 code.
bool hasCpuV3();

/// Write the loop as a `static inline MERIDUNE_KERNEL` function, call it from two thin ones, the second
/// marked MERIDUNE_V3, and choose between these two by cpuVariant().
///
/// The fused multiply-add is switched off by name: g++ 12 fuses products with alternating sums and
/// differences (complex products) even under -ffp-contract=off.
#define MERIDUNE_KERNEL __attribute__((always_inline))
#define MERIDUNE_V3 __attribute__((target("arch=x86-64-v3,no-fma")))

#endif
