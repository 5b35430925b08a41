#include "bitmap/reduce_colours.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <queue>

#include "bitmap/garmin_palette.h"

namespace quillmark {
namespace {

constexpr int kLargestDistance = 765;
// The red of an element that was taken out: farther from all others than any colour.
constexpr std::int16_t kGone = 8192;

// Colours by channel, for a search that compilers turn into wide instructions.
class Channels {
  public:
    explicit Channels(std::span<const Couleur> colours)
        : red_(colours.size()), green_(colours.size()), blue_(colours.size()) {
        for (std::size_t i = 0; i < colours.size(); ++i) {
            const Composantes parts = SeparerCouleur(colours[i]);
            red_[i] = parts.red;
            green_[i] = parts.green;
            blue_[i] = parts.blue;
        }
    }
    void takeOut(std::size_t i) { red_[i] = kGone; }
    [[nodiscard]] bool has(std::size_t i) const { return red_[i] != kGone; }
    [[nodiscard]] int distance(std::size_t i, std::size_t j) const {
        return std::abs(red_[i] - red_[j]) + std::abs(green_[i] - green_[j]) +
               std::abs(blue_[i] - blue_[j]);
    }
    [[nodiscard]] std::size_t size() const { return red_.size(); }

  private:
    std::vector<std::int16_t> red_;
    std::vector<std::int16_t> green_;
    std::vector<std::int16_t> blue_;
};

// An element and the nearest of those behind it.
struct Pair {
    int distance;
    std::size_t first;
    std::size_t second;
    // The order of a queue whose top is the smallest distance, then the lowest index.
    bool operator<(const Pair& other) const {
        return distance != other.distance ? distance > other.distance : first > other.first;
    }
};

// The last of equally near ones, which stays longest. Without any it is `size()`.
Pair nearestBehind(const Channels& channels, std::size_t first) {
    int nearest = kLargestDistance + 1;
    for (std::size_t j = first + 1; j < channels.size(); ++j) {
        nearest = std::min(nearest, channels.distance(first, j));
    }
    std::size_t second = channels.size();
    if (nearest <= kLargestDistance) {
        while (channels.distance(first, --second) != nearest) {
        }
    }
    return {nearest, first, second};
}

}  // namespace

std::size_t IndexPairePlusProche(std::span<const Couleur> colours) {
    std::size_t best = 0;
    int smallest = kLargestDistance;
    for (std::size_t i = 0; i + 1 < colours.size(); ++i) {
        for (std::size_t j = i + 1; j < colours.size(); ++j) {
            const int distance = DistanceCouleurs(colours[i], colours[j]);
            if (distance < smallest) {
                smallest = distance;
                best = i;
            }
        }
    }
    return best;
}

void ReduireCouleurs(std::vector<Couleur>& colours, int n) {
    const std::size_t wanted = n < 0 ? 0 : static_cast<std::size_t>(n);
    if (colours.size() <= wanted) {
        return;
    }
    Channels channels(colours);
    std::priority_queue<Pair> pairs;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        pairs.push(nearestBehind(channels, i));
    }
    for (std::size_t left = colours.size(); left > wanted;) {
        const Pair top = pairs.top();
        pairs.pop();
        // Distances only grow, so a pair whose second element is gone is searched anew only once
        // it comes first. Two colours 765 apart also give way in the order of their indices.
        if (top.second < colours.size() && !channels.has(top.second)) {
            pairs.push(nearestBehind(channels, top.first));
            continue;
        }
        channels.takeOut(top.first);
        --left;
    }
    std::size_t i = 0;
    std::erase_if(colours, [&](Couleur) { return !channels.has(i++); });
}

}  // namespace quillmark
