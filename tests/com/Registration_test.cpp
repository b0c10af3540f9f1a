// Tests the registration in the real registry. A registration changes only one hive. Its removal is complete.
#include <algorithm>
#include <cwchar>

#include "host/com/Registration.h"

#include "host/com/Guard.h"
#include "host/com/Module.h"
#include "host/com/Server.h"
#include "tests/com/ComTest.h"
#include "tests/com/Hives.h"

namespace tests::com {
namespace {

using host::com::RegistryEntry;
using runtime::win32::RegistryKey;

constexpr wchar_t kOwnKey[] = L"Software\\K4TBackProcess tests";

/// Runs the functions that write and remove the entries. The entries are below a registry key of the test.
class Entries : public testing::Test {
 protected:
    Entries() {
        HKEY made = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, kOwnKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made, nullptr);
        root.Reset(made);
    }
    ~Entries() override { RegDeleteTreeW(HKEY_CURRENT_USER, kOwnKey); }

    void Put(const wchar_t* key, const wchar_t* name, const wchar_t* value) const {
        const auto bytes = static_cast<DWORD>((wcslen(value) + 1) * sizeof(wchar_t));
        EXPECT_EQ(ERROR_SUCCESS, RegSetKeyValueW(root.Get(), key, name, REG_SZ, value, bytes));
    }
    Hive Content() const { return Snapshot(root.Get(), L""); }

    RegistryKey root;
    const std::vector<RegistryEntry> entries = {
        {u"A\\B", u"", u"default"}, {u"A\\B", u"name", u"named"}, {u"A\\C\\D", u"", u"deep"}};
};

TEST_F(Entries, EntriesWrittenAndRemoved_NoKeyRemains) {
    const Hive before = Content();
    host::com::WriteEntries(root.Get(), entries);
    const Hive written = Content();
    EXPECT_EQ(std::string("1:d\0e\0e\0p\0\0\0", 12), written.at(u"A\\C\\D\\"));
    EXPECT_EQ(1u, written.count(u"A\\B\\name"));
    host::com::RemoveEntries(root.Get(), entries);
    EXPECT_EQ(before, Content());
}

TEST_F(Entries, EntriesWrittenTwice_SecondWriteChangesNothing) {
    const Hive before = Content();
    host::com::WriteEntries(root.Get(), entries);
    const Hive once = Content();
    host::com::WriteEntries(root.Get(), entries);
    EXPECT_EQ(once, Content());
    host::com::RemoveEntries(root.Get(), entries);
    host::com::RemoveEntries(root.Get(), entries);
    EXPECT_EQ(before, Content());
}

TEST_F(Entries, EntriesOfOthers_AreKept) {
    Put(L"A", L"theirs", L"value");
    Put(L"A\\C\\D\\theirs", nullptr, L"value");
    const Hive before = Content();
    host::com::WriteEntries(root.Get(), entries);
    host::com::RemoveEntries(root.Get(), entries);
    EXPECT_EQ(before, Content());
}

TEST_F(Entries, WriteFails_EverythingIsUndone) {
    Put(L"A\\B", L"name", L"of before");
    const Hive before = Content();
    std::vector<RegistryEntry> withBadKey = entries;
    withBadKey.push_back({u"E\\" + String(300, u'x'), u"", u"longer than a key's name may be"});
    EXPECT_THROW(host::com::WriteEntries(root.Get(), withBadKey), host::com::ComError);
    EXPECT_EQ(before, Content());
}

TEST_F(Entries, RemoveFails_TheRestIsRemoved) {
    std::vector<RegistryEntry> withBadKey = entries;
    host::com::WriteEntries(root.Get(), entries);
    withBadKey.push_back({String(300, u'x'), u"", u""});
    EXPECT_THROW(host::com::RemoveEntries(root.Get(), withBadKey), host::com::ComError);
    EXPECT_EQ(1u, Content().size()) << "more than the root key remains";
}

/// Creates the user's key Software\Classes if the key is missing, and returns its content. On Windows, every user has
/// the key. In a new Wine prefix, the first registration for the user would create the key.
Hive ExistingUserClasses() {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr) ==
        0) {
        RegCloseKey(key);
    }
    return UserClasses();
}

class Registration : public testing::Test {
 protected:
    const Hive machineBefore = MachineClasses();
    const Hive userBefore = ExistingUserClasses();
};

/// Returns the number of values that only `after` has. Returns -1 if a key or value of `before` is missing or changed
/// in `after`.
int Added(const Hive& before, const Hive& after) {
    Hive rest = after;
    for (const auto& [path, value] : before) {
        const auto found = rest.find(path);
        if (found == rest.end() || found->second != value) return -1;
        rest.erase(found);
    }
    return static_cast<int>(
        std::count_if(rest.begin(), rest.end(), [](const auto& each) { return !each.second.empty(); }));
}

int EntryCount() {
    return static_cast<int>(host::com::RegistrationEntries(u"C:\\any.dll").size());
}

TEST_F(Registration, ForTheMachine_ChangesOnlyTheMachinesHive) {
    ASSERT_EQ(S_OK, host::com::RegisterServer());
    EXPECT_EQ(S_OK, host::com::RegisterServer());
    EXPECT_EQ(EntryCount(), Added(machineBefore, MachineClasses()));
    EXPECT_EQ(userBefore, UserClasses());
    EXPECT_EQ(S_OK, host::com::UnregisterServer());
    EXPECT_EQ(S_OK, host::com::UnregisterServer());
    EXPECT_EQ(machineBefore, MachineClasses());
}

TEST_F(Registration, ForTheUser_ChangesOnlyTheUsersHive) {
    ASSERT_EQ(S_OK, host::com::Install(true, L"user"));
    EXPECT_EQ(S_OK, host::com::Install(true, L"USER"));
    EXPECT_EQ(EntryCount(), Added(userBefore, UserClasses()));
    EXPECT_EQ(machineBefore, MachineClasses());
    EXPECT_EQ(S_OK, host::com::Install(false, L"user"));
    EXPECT_EQ(S_OK, host::com::Install(false, L"user"));
    EXPECT_EQ(userBefore, UserClasses());
}

TEST_F(Registration, RemovedForTheUser_MachinesRegistrationStays) {
    ASSERT_EQ(S_OK, host::com::RegisterServer());
    ASSERT_EQ(S_OK, host::com::Install(true, L"user"));
    EXPECT_EQ(S_OK, host::com::Install(false, L"user"));
    EXPECT_EQ(EntryCount(), Added(machineBefore, MachineClasses()));
    EXPECT_EQ(S_OK, host::com::UnregisterServer());
    EXPECT_EQ(machineBefore, MachineClasses());
    EXPECT_EQ(userBefore, UserClasses());
}

TEST_F(Registration, InstallationWithoutAText_IsForTheMachine) {
    for (const wchar_t* line : {static_cast<const wchar_t*>(nullptr), L""}) {
        ASSERT_EQ("0x00000000", Hex(host::com::Install(true, line)));
        EXPECT_EQ(EntryCount(), Added(machineBefore, MachineClasses()));
        EXPECT_EQ(userBefore, UserClasses());
        EXPECT_EQ("0x00000000", Hex(host::com::Install(false, line)));
        EXPECT_EQ(machineBefore, MachineClasses());
    }
}

TEST_F(Registration, TypeLibraryRegisteredByAProgram_IsRemoved) {
    ComPtr<ITypeLib> library;
    ASSERT_EQ("0x00000000",
              Hex(LoadTypeLibEx(runtime::win32::Wide(host::com::ModulePath()), REGKIND_REGISTER, library.Put())));
    EXPECT_NE(machineBefore, MachineClasses());
    EXPECT_EQ(S_OK, host::com::RegisterServer());
    EXPECT_EQ(S_OK, host::com::UnregisterServer());
    EXPECT_EQ(machineBefore, MachineClasses());
}

TEST_F(Registration, InstallationWithAnUnknownText_IsRefused) {
    for (const wchar_t* line : {L"machine", L"user "}) {
        EXPECT_EQ("0x80070057", Hex(host::com::Install(true, line)));
        EXPECT_EQ("0x80070057", Hex(host::com::Install(false, line)));
    }
    EXPECT_EQ(userBefore, UserClasses());
    EXPECT_EQ(machineBefore, MachineClasses());
}

TEST(RegistrationEntries, Entries_ContainTheKeysThatComNeeds) {
    std::vector<std::string> lines;
    for (const RegistryEntry& entry : host::com::RegistrationEntries(u"C:\\the suite\\K4TBackProcess.dll")) {
        lines.push_back(runtime::ToUtf8(entry.key + u'|' + entry.name + u'|' + entry.value));
    }
    const std::string classKey = "CLSID\\{ECD8F3EF-620B-4D2C-8D9B-9F3E96273634}";
    const std::string libraryKey = "TypeLib\\{525D7D67-10F8-4B05-99EF-A6A69CD0A145}\\1.0";
    for (const std::string& line : {
             "K4TBackProcess.clsQmxBackProcess\\CLSID||{ECD8F3EF-620B-4D2C-8D9B-9F3E96273634}" + std::string(),
             classKey + "||K4TBackProcess.clsQmxBackProcess",
             classKey + "\\InprocServer32||C:\\the suite\\K4TBackProcess.dll",
             classKey + "\\InprocServer32|ThreadingModel|Apartment",
             libraryKey + "||Pelorix Back process Manager",
             libraryKey + "\\409\\win32||C:\\the suite\\K4TBackProcess.dll",
             libraryKey + "\\0\\win32||C:\\the suite\\K4TBackProcess.dll",
             libraryKey + "\\HELPDIR||C:\\the suite",
         }) {
        EXPECT_THAT(lines, testing::Contains(line));
    }
}

}  // namespace
}  // namespace tests::com
