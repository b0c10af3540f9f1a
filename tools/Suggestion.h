// The word that a mistyped one was probably meant to be.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tools {

/// The candidate that is most like `word`: a few letters added, left out, replaced or swapped, or one word the
/// beginning of the other. The case of ASCII letters does not count. None when no candidate is near.
std::optional<std::string> Nearest(std::string_view word, std::span<const std::string> candidates);

/// "; did you mean 'CANDIDATE'?", or "" when no candidate is near.
std::string DidYouMean(std::string_view word, std::span<const std::string> candidates);

}  // namespace tools
