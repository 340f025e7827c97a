// VnHashKernels.cpp - the dot product of units and coefficients.
//
// The portable form is a plain reduction that compilers vectorize, but the
// baseline x86-64 instruction set has no 32-bit lane multiply, so there it
// is emulated at several instructions a lane.  Where the processor has AVX2
// (checked once, when the library is loaded), eight lanes multiply in one
// instruction.  Unsigned arithmetic wraps alike in any order, so both forms
// give the same value.
#include "engine/VnHashKernels.h"

#include <cstring>

#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
#define VN_HASH_AVX2 1
#include <immintrin.h>
#endif

namespace {

uint32_t Load8(const unsigned char* p, uint32_t i) { return p[i]; }

uint32_t Load16(const unsigned char* p, uint32_t i) {
  uint16_t u;
  memcpy(&u, p + 2 * i, sizeof u);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
  u = static_cast<uint16_t>((u >> 8) | (u << 8));
#endif
  return u;
}

template <uint32_t (*Load)(const unsigned char*, uint32_t)>
uint32_t Dot(const unsigned char* p, const uint32_t* coef, uint32_t begin, uint32_t end) {
  uint32_t h = 0;
  for (uint32_t i = begin; i < end; ++i)
    h += Load(p, i) * coef[i];
  return h;
}

#if defined(VN_HASH_AVX2)
// Eight units widened to 32-bit lanes.
__attribute__((target("avx2"))) __m256i Widen8(const unsigned char* p, uint32_t i) {
  return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + i)));
}
__attribute__((target("avx2"))) __m256i Widen16(const unsigned char* p, uint32_t i) {
  return _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 2 * i)));
}

// Eight lanes a step; the last partial step re-reads the line's last eight
// units with the lanes already summed masked off, so that no unit is read
// past the end and no scalar tail is left (lines shorter than a step go
// through the portable loop).
template <__m256i (*Widen)(const unsigned char*, uint32_t), uint32_t (*Load)(const unsigned char*, uint32_t)>
__attribute__((target("avx2"))) uint32_t DotAvx2(const unsigned char* p, const uint32_t* coef, uint32_t n) {
  if (n < 8)
    return Dot<Load>(p, coef, 0, n);
  __m256i acc = _mm256_setzero_si256();
  uint32_t i = 0;
  for (; i + 8 <= n; i += 8) {
    const __m256i c = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(coef + i));
    acc = _mm256_add_epi32(acc, _mm256_mullo_epi32(Widen(p, i), c));
  }
  if (i < n) {
    const uint32_t last = n - 8;
    const __m256i lane = _mm256_add_epi32(_mm256_set1_epi32(static_cast<int>(last)), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
    const __m256i fresh = _mm256_cmpgt_epi32(lane, _mm256_set1_epi32(static_cast<int>(i) - 1));
    const __m256i c = _mm256_and_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(coef + last)), fresh);
    acc = _mm256_add_epi32(acc, _mm256_mullo_epi32(Widen(p, last), c));
  }
  __m128i s = _mm_add_epi32(_mm256_castsi256_si128(acc), _mm256_extracti128_si256(acc, 1));
  s = _mm_add_epi32(s, _mm_shuffle_epi32(s, 0x4E));
  s = _mm_add_epi32(s, _mm_shuffle_epi32(s, 0xB1));
  return static_cast<uint32_t>(_mm_cvtsi128_si32(s));
}

bool HasAvx2() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2") != 0;
}
#endif

}  // namespace

uint32_t VnDotUnits8Portable(const unsigned char* bytes, const uint32_t* coef, uint32_t count) {
  return Dot<Load8>(bytes, coef, 0, count);
}

uint32_t VnDotUnits16Portable(const unsigned char* bytes, const uint32_t* coef, uint32_t count) {
  return Dot<Load16>(bytes, coef, 0, count);
}

namespace {

using DotFn = uint32_t (*)(const unsigned char*, const uint32_t*, uint32_t);

// Chosen once, when the library is loaded.
#if defined(VN_HASH_AVX2)
const DotFn kDot8 = HasAvx2() ? &DotAvx2<Widen8, Load8> : &VnDotUnits8Portable;
const DotFn kDot16 = HasAvx2() ? &DotAvx2<Widen16, Load16> : &VnDotUnits16Portable;
#else
const DotFn kDot8 = &VnDotUnits8Portable;
const DotFn kDot16 = &VnDotUnits16Portable;
#endif

}  // namespace

uint32_t VnDotUnits8(const unsigned char* bytes, const uint32_t* coef, uint32_t count) {
  return kDot8(bytes, coef, count);
}

uint32_t VnDotUnits16(const unsigned char* bytes, const uint32_t* coef, uint32_t count) {
  return kDot16(bytes, coef, count);
}
