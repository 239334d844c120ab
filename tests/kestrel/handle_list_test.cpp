// The handle list against a child that holds handles of known kinds.
#include "kestrel.h"

#include <gtest/gtest.h>

#include <string>

#include "held_handles.h"

namespace {

using lmvx_test::ChildProcess;
using lmvx_test::FileExists;
using lmvx_test::HeldHandlesChild;
using lmvx_test::PollUntil;
using lmvx_test::TempFolder;

const kestrel::_HANDLEOBJECT* Find(const kestrel::_HANDLELIST& list, unsigned long long value) {
    for (unsigned i = 0; i < list.GetHandleCount(); ++i) {
        const kestrel::_HANDLEOBJECT* entry = list.GetHandlePtr(i);
        if (reinterpret_cast<ULONG_PTR>(entry->GetRemoteHandle()) == value) return entry;
    }
    return nullptr;
}

TEST(HandleList, EachKnownHandleIsListedWithItsTypeAndName) {
    HeldHandlesChild child;
    ASSERT_TRUE(child.Ready()) << "the child could not open its handles, exit code " << child.ExitCode();
    kestrel::_HANDLELIST list;
    ASSERT_EQ(list.Init(), 1);
    ASSERT_EQ(list.QueryHandlesProcess(child.Pid()), 1);
    const std::wstring pid = std::to_wstring(child.Pid());
    struct Expected {
        const wchar_t* kind;
        const wchar_t* type;
        std::wstring printEnd;
        bool dosFile;
    };
    const Expected expected[] = {
        {L"event", L"Event", L"lmvx_test_event_" + pid, false},
        {L"mutex", L"Mutant", L"lmvx_test_mutex_" + pid, false},
        {L"file", L"File", child.FilePath(), true},
        {L"key", L"Key", L"\\Software", false},
        {L"process", L"Process", L"(" + std::to_wstring(GetCurrentProcessId()) + L")", false},
        {L"pipe", L"File", L"", false},   // the read pending on it does not stall the query
    };
    for (const Expected& e : expected) {
        const kestrel::_HANDLEOBJECT* entry = Find(list, child.Value(e.kind));
        ASSERT_NE(entry, nullptr) << e.kind;
        EXPECT_STREQ(entry->GetObjectTypeStr(), e.type) << e.kind;
        EXPECT_TRUE(std::wstring(entry->GetObjectPrintStr()).ends_with(e.printEnd)) << e.kind << ": " << entry->GetObjectPrintStr();
        EXPECT_EQ(entry->IsDosFile() != 0, e.dosFile) << e.kind;
        EXPECT_NE(entry->GetDesiredAccess(), 0u) << e.kind;
        EXPECT_NE(entry->GetReferenceCount(), 0u) << e.kind;   // read when asked for, not at the query
    }
    // A copy is independent of the list's entry.
    kestrel::_HANDLEOBJECT copy = *Find(list, child.Value(L"file"));
    ASSERT_EQ(list.QueryHandlesProcess(0), 0);
    EXPECT_EQ(std::wstring(copy.GetObjectPrintStr()), child.FilePath());
}

// Ten thousand handles are all listed with their type; once their process has ended, the list is empty, as for
// a process that cannot be opened.
TEST(HandleList, TenThousandHandlesAreAllListedAndAProcessThatCannotBeOpenedGivesAnEmptyList) {
    kestrel::_HANDLELIST list;
    EXPECT_EQ(list.GetHandlePtr(0), nullptr);
    EXPECT_STREQ(list.GetHandle(0).GetObjectTypeStr(), L"");
    const std::wstring report = TempFolder() + L"\\many_" + std::to_wstring(GetCurrentProcessId()) + L".txt";
    DeleteFileW(report.c_str());
    ChildProcess child(L"many 10000 \"" + report + L"\"");
    ASSERT_TRUE(PollUntil([&] { return FileExists(report) || !child.IsRunning(); }));
    ASSERT_EQ(list.QueryHandlesProcess(child.Pid()), 1);
    unsigned events = 0;
    for (unsigned i = 0; i < list.GetHandleCount(); ++i) events += std::wstring(list.GetHandlePtr(i)->GetObjectTypeStr()) == L"Event";
    EXPECT_GE(events, 10001u);
    child.End();
    EXPECT_EQ(list.QueryHandlesProcess(child.Pid()), 0);
    EXPECT_EQ(list.GetHandleCount(), 0u);
    DeleteFileW(report.c_str());
}

}  // namespace
