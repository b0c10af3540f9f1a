#include "tools/Suggestion.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tools {

namespace {

std::string InLowerCase(std::string_view word) {
    std::string lower(word);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return lower;
}

/// Returns the distance between two words. The distance is the number of changes that turn one word into the other. A
/// change inserts, deletes or replaces a letter, or swaps two neighbouring letters.
std::size_t EditDistance(const std::string& one, const std::string& other) {
    std::vector<std::vector<std::size_t>> cost(one.size() + 1, std::vector<std::size_t>(other.size() + 1));
    for (std::size_t i = 0; i <= one.size(); ++i) cost[i][0] = i;
    for (std::size_t j = 0; j <= other.size(); ++j) cost[0][j] = j;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t replaced = cost[i - 1][j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
            cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, replaced});
            const bool areSwapped = i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
            if (areSwapped) cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    }
    return cost[one.size()][other.size()];
}

/// Returns the distance of two similar words; at most 3 if one word begins with the other. Returns no value if the
/// words are not similar.
std::optional<std::size_t> Distance(const std::string& one, const std::string& other) {
    constexpr std::size_t kMaxWordLength = 64;
    constexpr std::size_t kShortestBeginning = 4;
    constexpr std::size_t kMaxDistance = 3;
    const auto& [shorter, longer] =
        std::minmax(one, other, [](const std::string& a, const std::string& b) { return a.size() < b.size(); });
    if (longer.size() > kMaxWordLength) return std::nullopt;
    const std::size_t distance = EditDistance(one, other);
    if (shorter.size() >= kShortestBeginning && longer.starts_with(shorter)) return std::min(distance, kMaxDistance);
    if (distance > std::clamp<std::size_t>(longer.size() / 3, 1, kMaxDistance)) return std::nullopt;
    return distance;
}

}  // namespace

std::optional<std::string> Nearest(std::string_view word, std::span<const std::string> candidates) {
    std::optional<std::string> nearest;
    std::size_t best = 0;
    const std::string wanted = InLowerCase(word);
    for (const std::string& candidate : candidates) {
        const std::optional<std::size_t> distance = Distance(wanted, InLowerCase(candidate));
        if (!distance || (nearest && *distance >= best)) continue;
        nearest = candidate;
        best = *distance;
    }
    return nearest;
}

std::string DidYouMean(std::string_view word, std::span<const std::string> candidates) {
    const std::optional<std::string> nearest = Nearest(word, candidates);
    return nearest ? "; did you mean '" + *nearest + "'?" : "";
}

}  // namespace tools
