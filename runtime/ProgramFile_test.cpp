#include "runtime/ProgramFile.h"

#include <gtest/gtest.h>

#include <string>

namespace runtime {
namespace {

/// Returns the headers of a program file with the given machine type.
std::string Program(std::string_view machineNumber) {
    std::string bytes(0x80, '\0');
    bytes.replace(0, 2, "MZ");
    bytes[0x3C] = '\x78';
    bytes.replace(0x78, 4, std::string_view("PE\0\0", 4));
    bytes.replace(0x7C, 2, machineNumber);
    return bytes;
}

TEST(BitsOfProgram, AreReadFromTheHeader) {
    EXPECT_EQ(BitsOfProgram(Program("\x4C\x01")), 32);
    EXPECT_EQ(BitsOfProgram(Program("\x64\x86")), 64);
    EXPECT_EQ(BitsOfProgram(Program("\xC4\x01")), 0);
    EXPECT_EQ(BitsOfProgram(Program("\x4C\x01").substr(0, 0x7E)), 32);
}

TEST(BitsOfProgram, AreZeroForOtherFiles) {
    const std::string program = Program("\x4C\x01");
    for (std::size_t size = 0; size < 0x7E; ++size) EXPECT_EQ(BitsOfProgram(program.substr(0, size)), 0) << size;
    std::string wild = program;
    wild.replace(0x3C, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(BitsOfProgram(wild), 0);
    // The script is long enough for a program's headers, but does not start with "MZ".
    EXPECT_EQ(BitsOfProgram("#!/bin/sh" + std::string(200, ' ')), 0);
}

}  // namespace
}  // namespace runtime
