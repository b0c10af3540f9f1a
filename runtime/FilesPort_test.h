// Declares the fixture of the tests that every implementation of FilesPort must pass. Each implementation instantiates
// the tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/FilesPort.h"
#include "tests/support/ErrorOf.h"

namespace runtime {

/// Provides an empty test folder. Its functions fill the folder without the port.
class FilesBed {
 public:
    enum class Kind { kOrdinary, kHidden, kSystem };

    virtual ~FilesBed() = default;
    virtual FilesPort& Port() = 0;
    /// Returns the folder without a final backslash.
    virtual String Folder() = 0;
    /// Returns a drive that does not exist, for example "X:".
    virtual String MissingDrive() = 0;

    // Names are relative to the folder.
    virtual void AddFolder(StringView name) = 0;
    virtual void AddFile(StringView name, std::string_view contents, Kind kind) = 0;
    virtual void RemoveFile(StringView name) = 0;
};

class FilesPortTest : public testing::TestWithParam<std::unique_ptr<FilesBed> (*)()> {
 protected:
    FilesPortTest() : bed_(GetParam()()), before_(Files().CurrentFolder()) {}
    ~FilesPortTest() override { Files().ChangeFolder(before_); }

    FilesPort& Files() { return bed_->Port(); }
    String Path(StringView name) { return bed_->Folder().append(u"\\").append(name); }
    void AddFolder(StringView name) { bed_->AddFolder(name); }
    void AddFile(StringView name, std::string_view contents = {}, FilesBed::Kind kind = FilesBed::Kind::kOrdinary) {
        bed_->AddFile(name, contents, kind);
    }
    void RemoveFile(StringView name) { bed_->RemoveFile(name); }
    String MissingDrive() { return bed_->MissingDrive(); }
    /// Returns the number of the error that ChangeFolder to `path` raises; 0 if there is no error.
    std::int32_t ChangeError(StringView path) {
        return tests::ErrorOf([&] { Files().ChangeFolder(path); });
    }

 private:
    std::unique_ptr<FilesBed> bed_;
    String before_;
};

}  // namespace runtime
