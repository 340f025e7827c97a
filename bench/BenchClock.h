// BenchClock.h - the clock of the Windows benchmarks: the performance
// counter, in milliseconds.
#ifndef VN_BENCH_BENCHCLOCK_H
#define VN_BENCH_BENCHCLOCK_H

#include <windows.h>

inline double NowMs() {
  static const double ticksPerMs = [] {
    LARGE_INTEGER f;
    ::QueryPerformanceFrequency(&f);
    return static_cast<double>(f.QuadPart) / 1000.0;
  }();
  LARGE_INTEGER now;
  ::QueryPerformanceCounter(&now);
  return static_cast<double>(now.QuadPart) / ticksPerMs;
}

#endif  // VN_BENCH_BENCHCLOCK_H
