// Fuzzes Val. Val must read the same number as the C library from the same digits. Blanks inside a number must change
// nothing. A finite double other than 0 must keep its bits if it is written and read again.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

#include "runtime/Error.h"
#include "runtime/Numbers.h"
#include "tests/fuzz/Require.h"

namespace {

using runtime::String;
using tests::Require;

char16_t TakeCharacter(FuzzedDataProvider& data) {
    static constexpr char16_t kCommon[] = {u'0', u'1', u'2', u'3', u'4', u'5', u'7', u'8', u'9', u'0', u'0', u'.',
                                           u'E', u'e', u'D', u'd', u'-', u'+', u'&', u'H', u'h', u'O', u'F', u' '};
    if (data.ConsumeIntegralInRange(0, 31) > 0) return data.PickValueInArray(kCommon);
    return data.ConsumeIntegral<char16_t>();
}

/// Returns Val's result, or no value for an overflow. Val has no other error.
std::optional<double> Read(const String& text) {
    try {
        return runtime::Val(text);
    } catch (const runtime::Error& error) {
        Require(error.Number() == runtime::kOverflow, "the only error is an overflow");
    }
    return std::nullopt;
}

bool AreSame(const std::optional<double>& a, const std::optional<double>& b) {
    if (a.has_value() != b.has_value()) return false;
    return !a || std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b);
}

std::string TakeDigits(const std::string& text, std::size_t& position) {
    const std::size_t begin = position;
    while (position < text.size() && text[position] >= '0' && text[position] <= '9') ++position;
    return text.substr(begin, position - begin);
}

/// Returns the number that the C library reads at the start of `text`. The text must not contain blanks.
std::optional<double> ReadWithLibrary(const std::string& text) {
    std::size_t position = 0;
    std::string number;
    const auto takeSign = [&] {
        if (position < text.size() && (text[position] == '+' || text[position] == '-')) number += text[position++];
    };
    takeSign();
    number += TakeDigits(text, position);
    if (position < text.size() && text[position] == '.') {
        number += text[position++];
        number += TakeDigits(text, position);
    }
    if (position < text.size() && std::string("EeDd").find(text[position]) != std::string::npos) {
        const std::string mantissa = number;
        number += 'e';
        ++position;
        takeSign();
        const std::string exponent = TakeDigits(text, position);
        number = exponent.empty() ? mantissa : number + exponent;
    }
    const double value = std::strtod(number.c_str(), nullptr);
    if (std::isinf(value)) return std::nullopt;
    return value == 0 ? 0 : value;
}

String WithBlanks(FuzzedDataProvider& data, const String& text) {
    static constexpr char16_t kSkipped[] = {u' ', u'\t', u'\n'};
    String spaced;
    for (const char16_t character : text) {
        for (int left = data.ConsumeIntegralInRange(0, 2); left > 0; --left) spaced += data.PickValueInArray(kSkipped);
        spaced += character;
    }
    return spaced;
}

void CheckAnyText(FuzzedDataProvider& data) {
    String text;
    for (auto left = data.ConsumeIntegralInRange(0, 1200); left > 0; --left) text += TakeCharacter(data);
    const std::optional<double> value = Read(text);
    Require(!value || std::isfinite(*value), "the result is a finite number");
    std::erase_if(text, [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\n'; });
    Require(AreSame(value, Read(text)), "blanks, tabs and line feeds change nothing");
    Require(AreSame(value, Read(WithBlanks(data, text))), "blanks at any position change nothing");
    Require(AreSame(value, Read(text + u"|7")), "a character that cannot continue a number ends it");

    // The C library's text must not contain a NUL.
    std::string narrow;
    for (const char16_t c : text) narrow += c > 0 && c < 0x80 ? static_cast<char>(c) : '|';
    const std::size_t first = narrow.find_first_not_of("+-");
    const bool isRadix = first != std::string::npos && first <= 1 && narrow[first] == '&';
    if (!isRadix) Require(AreSame(value, ReadWithLibrary(narrow)), "the result is the nearest double");
}

void CheckRadix(FuzzedDataProvider& data) {
    const auto bits = data.ConsumeIntegral<std::uint32_t>();
    const int base = data.ConsumeBool() ? 16 : 8;
    std::array<char, 16> digits{};
    std::to_chars(digits.data(), digits.data() + digits.size(), bits, base);
    const String text = (base == 16 ? u"&H" : u"&O") + runtime::FromAscii(digits.data());
    const double asShort = static_cast<std::int16_t>(bits);
    const double asLong = static_cast<std::int32_t>(bits);
    Require(Read(text + u"&") == asLong, "a hexadecimal or octal number with the suffix & has 32 bits");
    Require(Read(text) == (bits <= 0xFFFF ? asShort : asLong),
            "without the suffix, a number of up to 16 bits is a signed 16-bit number");
}

void CheckRoundTrip(FuzzedDataProvider& data) {
    const double number = std::bit_cast<double>(data.ConsumeIntegral<std::uint64_t>());
    if (!std::isfinite(number) || number == 0) return;
    std::array<char, 64> digits{};
    std::to_chars(digits.data(), digits.data() + digits.size(), number);
    Require(AreSame(number, Read(runtime::FromAscii(digits.data()))), "a written double is read unchanged");
}

/// Checks numbers that are exactly in the middle between two doubles. Also checks numbers that differ from such a
/// middle only in a late digit.
void CheckMiddle(FuzzedDataProvider& data) {
    constexpr std::uint64_t kFirst = std::uint64_t{1} << 53;
    const std::uint64_t middle = kFirst + 2 * data.ConsumeIntegralInRange<std::uint64_t>(0, kFirst / 2 - 1) + 1;
    const std::uint64_t even = middle % 4 == 1 ? middle - 1 : middle + 1;
    const String zeros(data.ConsumeIntegralInRange<std::size_t>(0, 3000), u'0');
    const String text = runtime::FromAscii(std::to_string(middle)) + u"." + zeros;
    Require(Read(text) == static_cast<double>(even), "a midpoint is rounded to even");
    Require(Read(text + u"1") == static_cast<double>(middle + 1), "a value above the midpoint is rounded up");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    switch (data.ConsumeIntegralInRange(0, 4)) {
        case 0:
            CheckRadix(data);
            break;
        case 1:
            CheckRoundTrip(data);
            break;
        case 2:
            CheckMiddle(data);
            break;
        default:
            CheckAnyText(data);
    }
    return 0;
}
