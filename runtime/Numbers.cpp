#include "runtime/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "runtime/Error.h"

namespace runtime {
namespace {

/// Walks through the characters that count; the skipped ones are never seen. U+0000, which no number contains,
/// stands for the end.
class Cursor {
 public:
    explicit Cursor(StringView text) : rest_(text) { Skip(); }

    char16_t Peek() const { return rest_.empty() ? u'\0' : rest_.front(); }

    /// Not to be called at the end.
    char16_t Next() {
        const char16_t character = rest_.front();
        rest_.remove_prefix(1);
        Skip();
        return character;
    }

    bool Accept(char16_t wanted) {
        if (Peek() != wanted) return false;
        Next();
        return true;
    }

    /// True for a minus sign; a plus sign is passed over.
    bool AcceptSign() {
        if (Accept(u'-')) return true;
        Accept(u'+');
        return false;
    }

 private:
    void Skip() {
        while (!rest_.empty() && (rest_.front() == u' ' || rest_.front() == u'\t' || rest_.front() == u'\n')) {
            rest_.remove_prefix(1);
        }
    }

    StringView rest_;
};

bool IsDecimalDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// 16 and more for what is no digit in any base.
unsigned DigitValue(char16_t c) {
    if (IsDecimalDigit(c)) return static_cast<unsigned>(c - u'0');
    if (c >= u'A' && c <= u'F') return static_cast<unsigned>(c - u'A') + 10;
    if (c >= u'a' && c <= u'f') return static_cast<unsigned>(c - u'a') + 10;
    return 16;
}

/// The digits of a decimal number without leading zeros, as an integer times a power of ten. However long the
/// text, only as many digits are kept as can make a difference to the nearest double.
class Decimal {
 public:
    void AddDigit(char16_t digit, bool isFraction) {
        const bool isLeadingZero = size_ == 0 && digit == u'0';
        if (isLeadingZero || size_ < kKeptDigits) {
            if (!isLeadingZero) digits_[size_++] = static_cast<char>(digit);
            if (isFraction) --exponent_;
            return;
        }
        isCut_ = isCut_ || digit != u'0';
        if (!isFraction) ++exponent_;
    }

    /// Error 6 when the number is too large; 0 when it is too small.
    double Scaled(std::int64_t powerOfTen) {
        if (size_ == 0) return 0;
        exponent_ += powerOfTen;
        const std::int64_t magnitude = exponent_ + static_cast<std::int64_t>(size_);
        if (magnitude > kMaxMagnitude) throw Error(kOverflow);
        if (magnitude < kMinMagnitude) return 0;
        if (isCut_) Append('1');
        // From 20 digits on the library works in integers only. With fewer it may multiply two doubles, which is
        // rounded twice where the floating-point unit keeps more bits than a double has (32-bit code).
        while (size_ < 20) Append('0');
        return Convert(magnitude);
    }

 private:
    // A double is decided by its first 767 significant digits and whether anything but zeros follows.
    static constexpr std::size_t kKeptDigits = 768;
    static constexpr std::int64_t kMaxMagnitude = 309;
    static constexpr std::int64_t kMinMagnitude = -324;
    static constexpr std::size_t kExponentRoom = 24;

    void Append(char digit) {
        digits_[size_++] = digit;
        --exponent_;
    }

    double Convert(std::int64_t magnitude) {
        char* const bufferEnd = digits_.data() + digits_.size();
        char* end = digits_.data() + size_;
        *end++ = 'e';
        end = std::to_chars(end, bufferEnd, exponent_).ptr;
        double number = 0;
        const auto result = std::from_chars(digits_.data(), end, number);
        if (result.ec != std::errc::result_out_of_range) return number;
        if (magnitude > 0) throw Error(kOverflow);
        return 0;
    }

    std::array<char, kKeptDigits + 1 + kExponentRoom> digits_;
    std::size_t size_ = 0;
    std::int64_t exponent_ = 0;
    bool isCut_ = false;
};

std::int64_t ReadExponent(Cursor& cursor) {
    // Far beyond what the digits of any text in memory can make up for.
    constexpr std::int64_t kEnough = 100'000'000'000'000'000;
    const bool isNegative = cursor.AcceptSign();
    std::int64_t exponent = 0;
    while (IsDecimalDigit(cursor.Peek())) {
        const unsigned digit = DigitValue(cursor.Next());
        if (exponent < kEnough) exponent = exponent * 10 + digit;
    }
    return isNegative ? -exponent : exponent;
}

double ReadDecimal(Cursor& cursor) {
    Decimal decimal;
    while (IsDecimalDigit(cursor.Peek())) decimal.AddDigit(cursor.Next(), false);
    if (cursor.Accept(u'.')) {
        while (IsDecimalDigit(cursor.Peek())) decimal.AddDigit(cursor.Next(), true);
    }
    const bool hasExponent = cursor.Accept(u'E') || cursor.Accept(u'e') || cursor.Accept(u'D') || cursor.Accept(u'd');
    return decimal.Scaled(hasExponent ? ReadExponent(cursor) : 0);
}

/// Numbers of up to 16 bits are signed 16-bit numbers, unless the suffix "&" makes them 32-bit ones.
double ReadRadix(Cursor& cursor, unsigned base) {
    std::uint64_t bits = 0;
    while (DigitValue(cursor.Peek()) < base) {
        bits = bits * base + DigitValue(cursor.Next());
        if (bits > UINT32_MAX) throw Error(kOverflow);
    }
    const bool isLong = bits > UINT16_MAX || cursor.Peek() == u'&';
    return isLong ? static_cast<std::int32_t>(bits) : static_cast<std::int16_t>(bits);
}

double ReadUnsigned(Cursor& cursor) {
    if (!cursor.Accept(u'&')) return ReadDecimal(cursor);
    if (cursor.Accept(u'H') || cursor.Accept(u'h')) return ReadRadix(cursor, 16);
    if (!cursor.Accept(u'O')) cursor.Accept(u'o');
    return ReadRadix(cursor, 8);
}

}  // namespace

String Str(std::int32_t number) {
    std::array<char, 12> buffer{' '};
    char* const first = buffer.data() + (number < 0 ? 0 : 1);
    const auto result = std::to_chars(first, buffer.data() + buffer.size(), number);
    return String(buffer.data(), result.ptr);
}

double Val(StringView text) {
    Cursor cursor(text);
    const bool isNegative = cursor.AcceptSign();
    const double number = ReadUnsigned(cursor);
    return isNegative && number != 0 ? -number : number;
}

std::int32_t ToInt32(double number) {
    // By hand: the library's rounding follows the thread's rounding mode, which belongs to the client.
    const double below = std::floor(number);
    const double fraction = number - below;
    const bool isUp = fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2) != 0);
    const double rounded = isUp ? below + 1 : below;
    if (!(rounded >= INT32_MIN && rounded <= INT32_MAX)) throw Error(kOverflow);
    return static_cast<std::int32_t>(rounded);
}

}  // namespace runtime
