#include "tests/platform/win32/KilledProcess.h"

#include "platform/win32/wide_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace tarveth {

namespace {

int callsSoFar = 0;
int lastCall = 0;

void CountCall() {
    ++callsSoFar;
    if (callsSoFar == lastCall)
        TerminateProcess(GetCurrentProcess(), kDied);
}

void Write(IMAGE_THUNK_DATA* entry, void* function) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &before);
    std::memcpy(entry, &function, sizeof function);
    VirtualProtect(entry, sizeof *entry, before, &before);
}

// Puts the function into this program's import table, where all its calls of the system's function go
// through.
bool Import(const char* name, void* function) {
    auto* const base = reinterpret_cast<unsigned char*>(GetModuleHandleW(nullptr));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    bool found = false;
    for (auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         library->Name != 0; ++library) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++entry) {
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) || std::strcmp(import->Name, name) != 0)
                continue;
            Write(entry, function);
            found = true;
        }
    }
    return found;
}

// Every place stands for one function of the system.
template <int Place, typename Result, typename... Values>
struct Counted {
    static inline Result(WINAPI* real)(Values...) = nullptr;
    static Result WINAPI Call(Values... values) {
        CountCall();
        return real(values...);
    }
};

template <int Place, typename Result, typename... Values>
void Count(const char* name, Result(WINAPI* real)(Values...)) {
    using Function = Counted<Place, Result, Values...>;
    Function::real = real;
    EXPECT_TRUE(Import(name, reinterpret_cast<void*>(&Function::Call))) << name;
}

} // namespace

KilledProcess::KilledProcess(const std::string& test, const std::string& file, int call) {
    SetEnvironmentVariableW(L"KILLED_FILE", platform::WideFromText(file).c_str());
    SetEnvironmentVariableW(L"KILLED_CALL", std::to_wstring(call).c_str());
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    ready_ = CreateEventW(&inherited, TRUE, FALSE, nullptr);
    SetEnvironmentVariableW(L"KILLED_READY",
                            std::to_wstring(reinterpret_cast<std::uintptr_t>(ready_)).c_str());
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring line = L"test --gtest_also_run_disabled_tests --gtest_brief=1 --gtest_filter=" +
                        platform::WideFromText(test);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    // Under Wine a start has been seen to fail, once in thousands, and the next one to succeed.
    constexpr int kAttempts = 5;
    DWORD error = ERROR_SUCCESS;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (CreateProcessW(program, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                           &process_) != FALSE)
            return;
        error = GetLastError();
        Sleep(100);
    }
    ADD_FAILURE() << "the process could not be started, error " << error;
}

KilledProcess::~KilledProcess() {
    Kill();
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    CloseHandle(ready_);
}

void KilledProcess::WaitUntilReady() const {
    const HANDLE either[] = {ready_, process_.hProcess};
    EXPECT_EQ(WaitForMultipleObjects(2, either, FALSE, INFINITE), WAIT_OBJECT_0);
}

void KilledProcess::Kill() const {
    TerminateProcess(process_.hProcess, kDied);
    Wait();
}

int KilledProcess::Wait() const {
    DWORD code = 0;
    WaitForSingleObject(process_.hProcess, INFINITE);
    GetExitCodeProcess(process_.hProcess, &code);
    return static_cast<int>(code);
}

std::string ToldFile() {
    return platform::TextFromWide(_wgetenv(L"KILLED_FILE"));
}

int ToldCall() {
    return std::stoi(_wgetenv(L"KILLED_CALL"));
}

void TellReady() {
    SetEvent(reinterpret_cast<HANDLE>(std::stoull(_wgetenv(L"KILLED_READY"))));
}

void DieAtCall(int call) {
    lastCall = call;
    Count<0>("GetFileAttributesW", GetFileAttributesW);
    Count<1>("SetFileAttributesW", SetFileAttributesW);
    Count<2>("GetFileSecurityW", GetFileSecurityW);
    Count<3>("SetFileSecurityW", SetFileSecurityW);
    Count<4>("CreateFileW", CreateFileW);
    Count<5>("WriteFile", WriteFile);
    Count<6>("FlushFileBuffers", FlushFileBuffers);
    Count<7>("CloseHandle", CloseHandle);
    Count<8>("DeleteFileW", DeleteFileW);
    Count<9>("MoveFileExW", MoveFileExW);
    Count<10>("WritePrivateProfileStringA", WritePrivateProfileStringA);
    Count<11>("WritePrivateProfileStringW", WritePrivateProfileStringW);
}

int CallsSoFar() {
    return callsSoFar;
}

} // namespace tarveth
