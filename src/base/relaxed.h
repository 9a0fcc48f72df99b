// A setting that one thread writes and another reads, with no order against anything else.
#pragma once

#include <atomic>

namespace veloria {

// A relaxed atomic that reads and assigns like the plain value. A new value is seen by the other thread some
// time later, whole; for gains, counts and clocks that is all that is needed.
template <class T>
class Relaxed {
  public:
    static_assert(std::atomic<T>::is_always_lock_free, "the audio thread must never wait for a value");

    Relaxed() = default;
    Relaxed(T value) : value_(value) {}  // NOLINT: meant to convert
    Relaxed(const Relaxed&) = delete;
    Relaxed& operator=(const Relaxed&) = delete;

    operator T() const { return value_.load(std::memory_order_relaxed); }  // NOLINT: meant to convert
    T operator=(T value) {  // NOLINT: assigns like the plain value
        value_.store(value, std::memory_order_relaxed);
        return value;
    }

  private:
    std::atomic<T> value_{};
};

}  // namespace veloria
