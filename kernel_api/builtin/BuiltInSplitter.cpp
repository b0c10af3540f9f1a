#include "kernel_api/builtin/BuiltInSplitter.h"

#include <vector>

#include "kernel_api/CommaFields.h"

namespace kernel_api::builtin {
namespace {

/// Parses the text only up to the requested field. Stores the parsed fields, so that no field is parsed twice.
class BuiltInFieldParser : public FieldParser {
 public:
    void SetText(StringView text) override {
        if (text_.capacity() > kRoomKept && text.size() <= kRoomKept) {
            String().swap(text_);
            std::vector<StringView>().swap(taken_);
        }
        text_ = text;
        fields_ = CommaFields(text_);
        taken_.clear();
    }

    StringView Field(std::int32_t number) override {
        if (number < 1) return {};
        const auto wanted = static_cast<std::size_t>(number);
        while (taken_.size() < wanted && !fields_.AtEnd()) taken_.push_back(fields_.Take().text);
        return taken_.size() < wanted ? StringView() : taken_[wanted - 1];
    }

 private:
    /// A buffer of up to this number of characters is kept for the next text. SetText frees a larger buffer if the new
    /// text fits into this size.
    static constexpr std::size_t kRoomKept = 65536;

    String text_;
    CommaFields fields_{text_};
    std::vector<StringView> taken_;
};

}  // namespace

std::unique_ptr<FieldParser> BuiltInSplitter::MakeFieldParser() {
    return std::make_unique<BuiltInFieldParser>();
}

std::int32_t BuiltInSplitter::CountPieces(StringView text, StringView separator) {
    std::int32_t pieces = 1;
    if (separator.empty()) return pieces;
    for (std::size_t at = text.find(separator); at != StringView::npos;
         at = text.find(separator, at + separator.size())) {
        ++pieces;
    }
    return pieces;
}

}  // namespace kernel_api::builtin
