#include "cli/worker_pool.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "cli/files.h"
#include "cli/workshop.h"

namespace command {
namespace {

/// A process that does pieces of work. It and this one talk over a socket that keeps messages apart: pieces
/// go one way, answers the other.
class Worker {
  public:
    explicit Worker(const SharedWork& work) {
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) != 0)
            throw Unusable("a socket", std::strerror(errno));
        const auto [here, there] = ends;
        channel_ = here;
        process_ = start_child([&, here, there] {
            close(here);
            labour(work, there);
            return Status::fine;
        });
        close(there);
    }
    Worker(const Worker&) = delete;
    /// It finishes its piece first.
    ~Worker() {
        dismiss();
        if (process_ > 0) await();
        close(channel_);
    }

    int channel() const { return channel_; }
    bool has_begun() const { return has_begun_; }
    const std::optional<size_t>& piece() const { return piece_; }

    /// What it says; nothing when it has ended.
    std::optional<int> hear() {
        int answer = 0;
        if (receive(channel_, answer)) return answer;
        return std::nullopt;
    }
    void begun() { has_begun_ = true; }
    /// One that has just stopped does not hear it, which shows when it is listened to.
    void give(size_t number) {
        piece_ = number;
        tell(channel_, number);
    }
    void take_back_piece() { piece_.reset(); }
    /// There is no more for it. Closing would not tell: workers that began later hold the socket, too.
    void dismiss() { shutdown(channel_, SHUT_WR); }
    ChildEnd await() { return await_child(std::exchange(process_, -1)); }

  private:
    template <class Value>
    static bool receive(int channel, Value& value) {
        ssize_t count = 0;
        do count = recv(channel, &value, sizeof value, 0);
        while (count < 0 && errno == EINTR);
        return count == sizeof value;
    }
    template <class Value>
    static bool tell(int channel, const Value& value) {
        return send(channel, &value, sizeof value, MSG_NOSIGNAL) == sizeof value;
    }

    /// What the process does: it says that it has begun, and then answers.
    static void labour(const SharedWork& work, int channel) {
        work.begin();
        bool is_heard = tell(channel, 0);
        for (size_t number = 0; is_heard && receive(channel, number);)
            is_heard = tell(channel, work.piece(number));
    }

    int channel_ = -1;
    pid_t process_ = -1;
    bool has_begun_ = false;
    std::optional<size_t> piece_;
};

class Pool {
  public:
    Pool(std::deque<size_t> numbers, const SharedWork& work) : left_(std::move(numbers)), work_(work) {}

    Status run() {
        const size_t processors = std::max(1u, std::thread::hardware_concurrency());
        for (size_t count = std::min(left_.size(), processors); count > 0; --count) employ();
        while (!workers_.empty()) {
            std::vector<pollfd> channels;
            for (const auto& worker : workers_) channels.push_back({worker->channel(), POLLIN, 0});
            if (poll(channels.data(), channels.size(), -1) < 0 && errno != EINTR)
                throw Unusable("a socket", std::strerror(errno));
            for (size_t i = channels.size(); i-- > 0;)
                if (channels[i].revents) attend_to(i);
        }
        return status_;
    }

  private:
    void employ() { workers_.push_back(std::make_unique<Worker>(work_)); }

    void attend_to(size_t index) {
        Worker& worker = *workers_[index];
        const std::optional<int> answer = worker.hear();
        if (!answer) return let_go(index);
        if (worker.has_begun()) work_.done(*worker.piece(), *answer);
        worker.begun();
        worker.take_back_piece();
        if (left_.empty()) return worker.dismiss();
        worker.give(left_.front());
        left_.pop_front();
    }

    void let_go(size_t index) {
        const std::unique_ptr<Worker> worker = std::move(workers_[index]);
        workers_.erase(workers_.begin() + static_cast<std::ptrdiff_t>(index));
        const auto [status, stopped] = worker->await();
        const std::string how = stopped.empty() ? "the simulated phone was switched off" : stopped;
        if (worker->piece())
            work_.lost(*worker->piece(), how);
        else if (status != Status::fine)
            note_end(*worker, how);
        if (!left_.empty()) employ();
    }

    void note_end(const Worker& worker, const std::string& how) {
        if (!worker.has_begun()) throw Unusable("a process that draws", how);
        std::fprintf(stderr, "huecraft: %s\n", how.c_str());
        note(status_, Status::unusable);
    }

    std::deque<size_t> left_;
    const SharedWork& work_;
    std::vector<std::unique_ptr<Worker>> workers_;
    Status status_ = Status::fine;
};

}  // namespace

Status share_out(std::deque<size_t> numbers, const SharedWork& work) {
    return Pool(std::move(numbers), work).run();
}

}  // namespace command
