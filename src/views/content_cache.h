// Keeps what was made from some content until memory runs short; the oldest use goes first.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillmark {

template <typename Value>
class ContentCache {
  public:
    // In bytes, keys included.
    explicit ContentCache(std::size_t room) : room_(room) {}
    // Values look up their keys in place, so that a copy would point into the original.
    ContentCache(const ContentCache&) = delete;
    ContentCache& operator=(const ContentCache&) = delete;

    // The value made of `content`; `make` is called when it isn't there, `size` tells its bytes.
    template <typename Make, typename Size>
    std::shared_ptr<const Value> get(std::string&& content, Make make, Size size) {
        if (const auto found = places_.find(content); found != places_.end()) {
            entries_.splice(entries_.begin(), entries_, found->second);
            return entries_.front().value;
        }
        auto value = std::make_shared<const Value>(make());
        const std::size_t bytes = size(*value) + content.size() + kEntryOverhead;
        entries_.push_front({std::move(content), value, bytes});
        places_.emplace(entries_.front().content, entries_.begin());
        used_ += bytes;
        while (used_ > room_) {
            used_ -= entries_.back().bytes;
            places_.erase(entries_.back().content);
            entries_.pop_back();
        }
        return value;
    }
    void clear() {
        places_.clear();
        entries_.clear();
        used_ = 0;
    }
    [[nodiscard]] std::size_t count() const { return entries_.size(); }
    [[nodiscard]] std::size_t used() const { return used_; }

  private:
    static constexpr std::size_t kEntryOverhead = 200;

    struct Entry {
        std::string content;
        std::shared_ptr<const Value> value;
        std::size_t bytes = 0;
    };
    std::size_t room_;
    std::size_t used_ = 0;
    std::list<Entry> entries_;  // used last first
    std::unordered_map<std::string_view, typename std::list<Entry>::iterator> places_;
};

}  // namespace quillmark
