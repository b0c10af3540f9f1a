// Suggests the word that the user probably meant.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tools {

/// Returns the candidate that is most similar to `word`, or no value if no candidate is similar. Two words are similar
/// if they differ in a few inserted, deleted, replaced or swapped letters. They are also similar if one word is the
/// beginning of the other and has at least four letters. The case of ASCII letters is ignored.
std::optional<std::string> Nearest(std::string_view word, std::span<const std::string> candidates);

/// Returns "; did you mean 'CANDIDATE'?", or "" if no candidate is similar.
std::string DidYouMean(std::string_view word, std::span<const std::string> candidates);

}  // namespace tools
