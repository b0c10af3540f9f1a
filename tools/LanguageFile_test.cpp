#include "tools/LanguageFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "runtime/headless/MemoryFiles.h"

namespace tools {
namespace {

class LanguageFile : public testing::Test {
 protected:
    /// Returns the error message for `folder`, or "" if the file is accepted.
    std::string Complaint(runtime::StringView folder) {
        try {
            LanguageFileIn(files_, folder);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    }

    runtime::headless::MemoryFiles files_;
};

TEST_F(LanguageFile, FileInTheFolder_IsFound) {
    files_.AddFile(u"C:\\de\\K4TBackProcess.txt", "1 = a\n");
    EXPECT_EQ(LanguageFileIn(files_, u"C:\\de"), u"C:\\de\\K4TBackProcess.txt");
    EXPECT_EQ(LanguageFileIn(files_, u"C:\\de\\"), u"C:\\de\\K4TBackProcess.txt");
}

TEST_F(LanguageFile, MissingFile_IsNamed) {
    EXPECT_EQ(
        Complaint(u"C:\\fr"),
        "there is no language file 'C:\\fr\\K4TBackProcess.txt'; 'backproc texts --template' writes one to start from");
}

TEST_F(LanguageFile, TooLargeFile_IsRefused) {
    files_.AddFile(u"C:\\full\\K4TBackProcess.txt", std::string(16 << 20, '#'));
    EXPECT_EQ(Complaint(u"C:\\full"), "");
    files_.AddFile(u"C:\\more\\K4TBackProcess.txt", std::string((16 << 20) + 1, '#'));
    EXPECT_EQ(Complaint(u"C:\\more"),
              "the language file 'C:\\more\\K4TBackProcess.txt' has 16777217 bytes; make it no larger than 16777216");
}

TEST_F(LanguageFile, EmptyFolderName_IsRefused) {
    files_.AddFile(u"\\K4TBackProcess.txt", "1 = a\n");
    EXPECT_EQ(Complaint(u""), "the name of the language folder is empty; give a folder that has a K4TBackProcess.txt");
}

}  // namespace
}  // namespace tools
