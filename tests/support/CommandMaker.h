// Generates random commands from addressees, verbs and random characters. A few commands are very long. The sequence is
// the same in every run.
#pragma once

#include <iterator>
#include <random>

#include "runtime/Text.h"

namespace tests {

/// Never generates EX, because EX unloads the forms.
class CommandMaker {
 public:
    static constexpr std::size_t kMaxLength =
        1024 * 1024;  ///< number of random UTF-16 units at the end of a very long command

    /// On average, one of `commandsPerLong` commands is very long. On average, one of `commandsPerLz` commands is LZ.
    CommandMaker(std::size_t commandsPerLong, std::size_t commandsPerLz)
        : commandsPerLong_(commandsPerLong), commandsPerLz_(commandsPerLz) {}

    runtime::String Next() {
        using runtime::String;
        using runtime::StringView;
        static constexpr StringView kStarts[] = {
            u"All", u"K4TBACKPROCESS",     u"Editor", u"all", u"\"All\"", u"\"All,", u"", u"\"",
            u",",   u"\"K4TBACKPROCESS\"x"};
        static constexpr StringView kVerbs[] = {u"SAVE", u"OPEN", u"RD",       u"UP",   u"FMVHDLED,WIRELIST",
                                                u"save", u"",     u"\"SAVE\"", u"\"UP", u"NONE"};
        if (Pick(commandsPerLz_) == 0) return u"All,LZ";
        String command = String(kStarts[Pick(std::size(kStarts))]) + u',';
        command += kVerbs[Pick(std::size(kVerbs))];
        if (Pick(3) == 0) AddRubbish(command, Pick(20));
        if (Pick(commandsPerLong_) == 0) AddRubbish(command, kMaxLength);
        return command;
    }

 private:
    std::size_t Pick(std::size_t count) { return random_() % count; }

    void AddRubbish(runtime::String& command, std::size_t length) {
        static constexpr char16_t kUnits[] = {u',', u'"', u'\0', 0xD800, 0xDC00, u'A', u' ', 0xFFFF};
        for (; length > 0; --length) command += kUnits[Pick(std::size(kUnits))];
    }

    std::size_t commandsPerLong_;
    std::size_t commandsPerLz_;
    std::minstd_rand random_{4711};
};

}  // namespace tests
