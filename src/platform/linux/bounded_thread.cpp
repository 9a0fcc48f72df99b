#include "platform/linux/bounded_thread.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace veloria::platform {

struct BoundedThread::Queue {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    std::uint64_t given = 0;
    std::uint64_t done = 0;
    bool closed = false;  // no more will be given
};

BoundedThread::BoundedThread() : m_queue(std::make_shared<Queue>()) {
    std::thread([queue = m_queue] {
        std::unique_lock lock(queue->mutex);
        for (;;) {
            queue->changed.wait(lock, [&queue] { return queue->closed || !queue->jobs.empty(); });
            if (queue->jobs.empty()) return;
            {
                const Job job = std::move(queue->jobs.front());
                queue->jobs.pop_front();
                lock.unlock();
                try {
                    job();
                } catch (const std::exception&) {  // no memory: its giver finds nothing written
                }
            }
            lock.lock();
            ++queue->done;
            queue->changed.notify_all();
        }
    }).detach();
}

BoundedThread::~BoundedThread() {
    const std::lock_guard lock(m_queue->mutex);
    m_queue->closed = true;
    m_queue->changed.notify_all();
}

void BoundedThread::post(Job job) {
    const std::lock_guard lock(m_queue->mutex);
    m_queue->jobs.push_back(std::move(job));
    ++m_queue->given;
    m_queue->changed.notify_all();
}

bool BoundedThread::run(Job job, std::chrono::milliseconds limit) {
    post(std::move(job));
    std::unique_lock lock(m_queue->mutex);
    return m_queue->changed.wait_for(lock, limit, [this] { return m_queue->done == m_queue->given; });
}

}  // namespace veloria::platform
