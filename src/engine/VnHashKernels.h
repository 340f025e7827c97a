// VnHashKernels.h - the inner sum of the line hash without flags.
//
// The hash of a line with no flag set is a dot product of its units with a
// table of coefficients.  These kernels compute sum(unit[i] * coef[i]) for
// i < count, unsigned 32-bit, units read little-endian from bytes at any
// alignment.  The plain entry points pick the widest form the processor
// offers at run time; the Portable ones are the form every machine runs, so
// that tests can hold the two against each other on any machine.
#ifndef VN_ENGINE_VNHASHKERNELS_H
#define VN_ENGINE_VNHASHKERNELS_H

#include <cstdint>

uint32_t VnDotUnits8(const unsigned char* bytes, const uint32_t* coef, uint32_t count);
uint32_t VnDotUnits16(const unsigned char* bytes, const uint32_t* coef, uint32_t count);

uint32_t VnDotUnits8Portable(const unsigned char* bytes, const uint32_t* coef, uint32_t count);
uint32_t VnDotUnits16Portable(const unsigned char* bytes, const uint32_t* coef, uint32_t count);

#endif  // VN_ENGINE_VNHASHKERNELS_H
