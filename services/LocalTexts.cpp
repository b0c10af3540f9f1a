#include "services/LocalTexts.h"

#include <algorithm>
#include <iterator>

#include "services/MessageTexts.h"

namespace services {
namespace {

constexpr ErrorText kErrorTexts[] = {
    {1, {u"99352", u"Can't load project: ", u"error 1, before the detail"}},
    {2, {u"99374", u"Can't save project", u"error 2, before the detail"}},
    {3, {u"1097", u"Can't create net hook ", u"error 3, before the detail"}},
    {4, {u"1099", u"Can't find project file: ", u"error 4, before the detail"}},
    {21, {u"991089", u"Range Error: ", u"error 21, before the detail"}},
    {22, {u"10294", u"Can't load local vector font, default assumed.", u"error 22, before the detail"}},
    {23, {u"10320", u"Can't exceed 25 characters.", u"error 23, before the detail"}},
    {24, {u"10321", u"Password can't exceed 8 characters.", u"error 24, before the detail"}},
    {101,
     {u"99561", u"Part/Symbol: ", u"error 101, before the detail"},
     {u"99196", u" already exists", u"error 101, after the detail"}},
};

}  // namespace

const ErrorText* FindErrorText(std::int32_t number) {
    const auto* const found = std::ranges::find(kErrorTexts, number, &ErrorText::number);
    return found == std::end(kErrorTexts) ? nullptr : found;
}

std::vector<LocalText> CodeTexts() {
    std::vector<LocalText> texts = {kApplicationCaption, kModuleCaption, kFolderLead, kFolderNotAvailable};
    for (const ErrorText& error : kErrorTexts) {
        texts.push_back(error.before);
        if (!error.after.id.empty()) texts.push_back(error.after);
    }
    return texts;
}

runtime::String GetLocalText(const LocalText& text) {
    return GetLocalText(text.defaultText, text.id);
}

}  // namespace services
