// Notices within one thread: who observes holds a Connection, and is out of it when that goes.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quillmark {

class Connection {
  public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    Connection(Connection&& other) noexcept : disconnect_(std::exchange(other.disconnect_, {})) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            disconnect();
            disconnect_ = std::exchange(other.disconnect_, {});
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { disconnect(); }

    void disconnect() {
        if (auto end = std::exchange(disconnect_, {})) {
            end();
        }
    }

  private:
    std::function<void()> disconnect_;
};

template <typename... Arguments>
class Signal {
  public:
    using Slot = std::function<void(Arguments...)>;

    [[nodiscard]] Connection connect(Slot slot) {
        auto kept = std::make_shared<Slot>(std::move(slot));
        slots_->push_back(kept);
        return Connection([slots = std::weak_ptr(slots_), kept] {
            if (auto all = slots.lock()) {
                *kept = nullptr;
                std::erase(*all, kept);
            }
        });
    }
    // Slots may connect and disconnect while they are called.
    void operator()(const Arguments&... arguments) const {
        const auto called = *slots_;
        for (const auto& slot : called) {
            if (*slot) {
                const Slot copy = *slot;
                copy(arguments...);
            }
        }
    }

  private:
    std::shared_ptr<std::vector<std::shared_ptr<Slot>>> slots_ =
        std::make_shared<std::vector<std::shared_ptr<Slot>>>();
};

}  // namespace quillmark
