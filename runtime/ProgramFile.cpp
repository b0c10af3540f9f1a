#include "runtime/ProgramFile.h"

#include <cstddef>

namespace runtime {
namespace {

unsigned NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
    unsigned number = 0;
    for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

}  // namespace

// A program starts with "MZ". The number at 0x3C is the offset of "PE\0\0". The machine type follows these four bytes.
int BitsOfProgram(std::string_view bytes) {
    constexpr std::size_t kPlaceOfHeader = 0x3C;
    constexpr std::size_t kSignature = 4;
    constexpr unsigned kI386 = 0x14C;
    constexpr unsigned kAmd64 = 0x8664;
    if (!bytes.starts_with("MZ") || bytes.size() < kPlaceOfHeader + kSignature) return 0;
    const std::size_t header = NumberAt(bytes, kPlaceOfHeader, kSignature);
    if (header > bytes.size() || bytes.size() - header < kSignature + 2) return 0;
    if (bytes.substr(header, kSignature) != std::string_view("PE\0\0", kSignature)) return 0;
    switch (NumberAt(bytes, header + kSignature, 2)) {
        case kI386:
            return 32;
        case kAmd64:
            return 64;
        default:
            return 0;
    }
}

}  // namespace runtime
