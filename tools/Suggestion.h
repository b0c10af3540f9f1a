// Suggests the word that the user probably meant.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tools {

/// The candidate most similar to `word`. Similar means that a few letters are inserted, deleted, replaced or swapped,
/// or that one word is the beginning of the other. The case of ASCII letters is ignored. None if no candidate is
/// similar.
std::optional<std::string> Nearest(std::string_view word, std::span<const std::string> candidates);

/// "; did you mean 'CANDIDATE'?", or "" if no candidate is similar.
std::string DidYouMean(std::string_view word, std::span<const std::string> candidates);

}  // namespace tools
