// Numbers too small to be heard cost a processor a hundred times what others do.
#pragma once

#include <cstdint>

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

namespace veloria {

// Has the calling thread take and give 0 for denormal numbers for the length of a scope. On the audio thread
// and round every offline render, so that both sound the same.
class FlushDenormals {
  public:
    FlushDenormals() : before_(read()) { write(before_ | kFlush); }
    ~FlushDenormals() { write(before_); }
    FlushDenormals(const FlushDenormals&) = delete;
    FlushDenormals& operator=(const FlushDenormals&) = delete;

  private:
#if defined(__SSE2__)
    using Control = std::uint32_t;
    static constexpr Control kFlush = 0x8040;  // flush to zero, denormals are zeros
    static Control read() {
        return _mm_getcsr();
    }
    static void write(Control control) {
        _mm_setcsr(control);
    }
#elif defined(__aarch64__)
    using Control = std::uint64_t;
    static constexpr Control kFlush = Control{1} << 24;
    static Control read() {
        Control control;
        asm volatile("mrs %0, fpcr" : "=r"(control));
        return control;
    }
    static void write(Control control) {
        asm volatile("msr fpcr, %0" : : "r"(control));
    }
#else
    using Control = std::uint32_t;
    static constexpr Control kFlush = 0;
    static Control read() {
        return 0;
    }
    static void write(Control) {}
#endif

    Control before_;
};

}  // namespace veloria
