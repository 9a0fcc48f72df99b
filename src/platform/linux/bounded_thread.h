// A thread for calls into a library that may never come back.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace veloria::platform {

// Carries out jobs in their order. Who asks waits no longer than he says: a job that hangs is left behind
// with its thread, and nobody ever waits for that thread's end. A job may thus run when its giver is long
// gone, and must own all that it touches. All calls from one thread.
class BoundedThread {
  public:
    using Job = std::function<void()>;

    // Throws std::system_error where no thread is to be had.
    BoundedThread();
    // The jobs that were given are still carried out.
    ~BoundedThread();
    BoundedThread(const BoundedThread&) = delete;
    BoundedThread& operator=(const BoundedThread&) = delete;

    void post(Job job);

    // True when the job was carried out within the limit; what it wrote may be read then, and only then. One
    // that throws has been carried out as far as it came.
    [[nodiscard]] bool run(Job job, std::chrono::milliseconds limit);

  private:
    struct Queue;
    std::shared_ptr<Queue> m_queue;  // shared with the thread
};

}  // namespace veloria::platform
