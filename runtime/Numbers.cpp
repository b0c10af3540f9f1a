#include "runtime/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "runtime/Error.h"

namespace runtime {
namespace {

/// Reads the characters of a number and skips blanks, tabs and line feeds. Peek returns U+0000 at the end of the text.
/// No number contains U+0000.
class Cursor {
 public:
    explicit Cursor(StringView text) : rest_(text) { Skip(); }

    char16_t Peek() const { return rest_.empty() ? u'\0' : rest_.front(); }

    /// Must not be called at the end.
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

    bool AcceptAny(StringView wanted) {
        if (wanted.find(Peek()) == StringView::npos) return false;
        Next();
        return true;
    }

    /// Skips an optional sign. Returns true for a minus sign.
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

/// Returns the value of a hexadecimal digit; 16 for another character.
unsigned DigitValue(char16_t c) {
    if (IsDecimalDigit(c)) return static_cast<unsigned>(c - u'0');
    if (c >= u'A' && c <= u'F') return static_cast<unsigned>(c - u'A') + 10;
    if (c >= u'a' && c <= u'f') return static_cast<unsigned>(c - u'a') + 10;
    return 16;
}

/// Stores a decimal number as an integer times a power of ten, without leading zeros. Keeps only the digits that can
/// affect the nearest double. Therefore a long text needs no more memory.
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

    bool IsZero() const { return size_ == 0; }

    /// Returns the number times 10 to the power `powerOfTen`. Throws error 6 if the result is too large for a double.
    /// Returns 0 if the result is too small.
    double Scaled(std::int64_t powerOfTen) {
        exponent_ += powerOfTen;
        if (exponent_ == 0 && size_ <= kExactDigits) return Integer();
        const std::int64_t magnitude = exponent_ + static_cast<std::int64_t>(size_);
        if (magnitude > kMaxMagnitude) throw Error(kOverflow);
        if (magnitude < kMinMagnitude) return 0;
        if (isCut_) Append('1');
        // Pad to 20 digits, because std::from_chars then uses only integers. For fewer digits it may multiply two
        // doubles, and the floating-point unit of 32-bit code rounds that product twice.
        while (size_ < 20) Append('0');
        return Convert(magnitude);
    }

 private:
    // The nearest double depends only on the first 767 significant digits and on whether a digit other than 0 follows.
    static constexpr std::size_t kKeptDigits = 768;
    /// A double can represent every integer with at most this number of digits.
    static constexpr std::size_t kExactDigits = 15;
    static constexpr std::int64_t kMaxMagnitude = 309;
    static constexpr std::int64_t kMinMagnitude = -324;
    static constexpr std::size_t kExponentRoom = 24;

    double Integer() const {
        std::int64_t number = 0;
        for (std::size_t i = 0; i < size_; ++i) number = number * 10 + (digits_[i] - '0');
        return static_cast<double>(number);
    }

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
    // A text in memory cannot have enough digits to compensate for a larger exponent.
    constexpr std::int64_t kEnough = 100'000'000'000'000'000;
    const bool isNegative = cursor.AcceptSign();
    std::int64_t exponent = 0;
    while (IsDecimalDigit(cursor.Peek())) {
        const unsigned digit = DigitValue(cursor.Next());
        if (exponent < kEnough) exponent = exponent * 10 + digit;
    }
    return isNegative ? -exponent : exponent;
}

double ReadDecimal(Cursor& cursor, StringView decimalMarks) {
    Decimal decimal;
    while (IsDecimalDigit(cursor.Peek())) decimal.AddDigit(cursor.Next(), false);
    if (cursor.AcceptAny(decimalMarks)) {
        while (IsDecimalDigit(cursor.Peek())) decimal.AddDigit(cursor.Next(), true);
    }
    if (decimal.IsZero()) return 0;
    return decimal.Scaled(cursor.AcceptAny(u"EeDd") ? ReadExponent(cursor) : 0);
}

/// A number of up to 16 bits is a signed 16-bit number, unless the suffix "&" makes it a 32-bit number.
double ReadRadix(Cursor& cursor, unsigned base) {
    std::uint64_t bits = 0;
    while (DigitValue(cursor.Peek()) < base) {
        bits = bits * base + DigitValue(cursor.Next());
        if (bits > UINT32_MAX) throw Error(kOverflow);
    }
    const bool isLong = bits > UINT16_MAX || cursor.Peek() == u'&';
    return isLong ? static_cast<std::int32_t>(bits) : static_cast<std::int16_t>(bits);
}

double ReadUnsigned(Cursor& cursor, StringView decimalMarks) {
    if (!cursor.Accept(u'&')) return ReadDecimal(cursor, decimalMarks);
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

double Val(StringView text, StringView decimalMarks) {
    Cursor cursor(text);
    const bool isNegative = cursor.AcceptSign();
    const double number = ReadUnsigned(cursor, decimalMarks);
    return isNegative && number != 0 ? -number : number;
}

std::int32_t ToInt32(double number) {
    // Do not use functions such as std::nearbyint. They follow the thread's rounding mode, which the client may have
    // changed.
    const double below = std::floor(number);
    const double fraction = number - below;
    const bool isUp = fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2) != 0);
    const double rounded = isUp ? below + 1 : below;
    if (!(rounded >= INT32_MIN && rounded <= INT32_MAX)) throw Error(kOverflow);
    return static_cast<std::int32_t>(rounded);
}

}  // namespace runtime
