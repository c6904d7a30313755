// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsProcesses.h"

#include "platform/windows/CommandLineText.h"
#include "platform/windows/FileFacts.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"

#include <windows.h>

// The system has a macro of this name.
#undef GetShortPathName

#include <array>
#include <cstddef>

namespace turfdesk {

namespace {

constexpr DWORD RepaintInterval = 50;

/// The short form of a system path, itself a system path; "" on failure.
std::wstring ShortPath(const std::wstring &systemPath) {
  std::wstring shortPath(GetShortPathNameW(systemPath.c_str(), nullptr, 0), L'\0');
  shortPath.resize(GetShortPathNameW(systemPath.c_str(), shortPath.data(), static_cast<DWORD>(shortPath.size())));
  return shortPath;
}

/// The path of a program's file. Throws RuntimeError when there is none.
std::wstring ProgramFile(std::string_view program) {
  FileFacts facts;
  std::uint32_t error = LookAt(program, facts);
  if (error == 0 && facts.isFolder)
    error = ERROR_ACCESS_DENIED;
  if (error != 0)
    ThrowSystemError(error);
  std::wstring systemPath;
  ToSystemPath(program, systemPath);
  std::wstring plain = PlainPath(systemPath);
  // Programs look for their own files by the path that they were started with, and may know no other form.
  return plain.size() < MAX_PATH ? plain : ShortPath(systemPath);
}

/// What a hidden program is started with. It gets the handles of its input and output and no other: somebody may wait
/// for the end of an output of ours, which would not come while the program holds it open, too.
class HiddenStart {
public:
  HiddenStart() {
    SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    mInput = SystemHandle(
        CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
    HANDLE output = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetStdHandle(STD_ERROR_HANDLE), GetCurrentProcess(), &output, 0, TRUE,
                    DUPLICATE_SAME_ACCESS);
    // A program with windows may have no standard error.
    if (output == nullptr)
      output =
          CreateFileW(L"NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr);
    mOutput = SystemHandle(output);
    mHandles = {mInput.Get(), mOutput.Get()};
    SetInformation();
  }
  HiddenStart(const HiddenStart &) = delete;
  HiddenStart &operator=(const HiddenStart &) = delete;
  ~HiddenStart() { DeleteProcThreadAttributeList(mInformation.lpAttributeList); }

  STARTUPINFOW *Information() { return &mInformation.StartupInfo; }

private:
  void SetInformation() {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    mAttributes.resize(size);
    mInformation.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(mAttributes.data());
    InitializeProcThreadAttributeList(mInformation.lpAttributeList, 1, 0, &size);
    UpdateProcThreadAttribute(mInformation.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, mHandles.data(),
                              sizeof(mHandles), nullptr, nullptr);
    STARTUPINFOW &start = mInformation.StartupInfo;
    start.cb = sizeof(mInformation);
    start.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
    start.wShowWindow = SW_HIDE;
    start.hStdInput = mInput.Get();
    start.hStdOutput = mOutput.Get();
    start.hStdError = mOutput.Get();
  }

  SystemHandle mInput;
  SystemHandle mOutput;
  std::array<HANDLE, 2> mHandles = {};
  std::vector<std::byte> mAttributes;
  STARTUPINFOEXW mInformation = {};
};

struct StartedProcess {
  SystemHandle handle;
  DWORD id = 0;
};

/// Gives 0 or the system's number of the failure.
std::uint32_t Create(const std::wstring &program, std::wstring commandLine, bool inherit, DWORD flags,
                     STARTUPINFOW *start, StartedProcess &started) {
  PROCESS_INFORMATION information = {};
  // Boxes of the system that are kept away from this program are for the other to allow.
  flags |= CREATE_DEFAULT_ERROR_MODE;
  if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, inherit, flags, nullptr, nullptr, start,
                     &information) == 0)
    return GetLastError();
  const SystemHandle thread(information.hThread);
  started = {SystemHandle(information.hProcess), information.dwProcessId};
  return 0;
}

std::uint32_t Start(const std::wstring &program, const std::wstring &commandLine, WindowStyle style,
                    StartedProcess &started) {
  if (style == WindowStyle::Hidden) {
    HiddenStart hidden;
    return Create(program, commandLine, true, CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT, hidden.Information(),
                  started);
  }
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  return Create(program, commandLine, false, CREATE_NEW_CONSOLE, &start, started);
}

[[noreturn]] void ThrowStartError(std::uint32_t error) {
  const ErrorNumber number = NumberOfSystemError(error);
  if (error == ERROR_ACCESS_DENIED || (number != ErrorNumber::PathFileAccess && number != ErrorNumber::DeviceIo))
    throw RuntimeError(number);
  const std::string words = SystemWords(error);
  // Some have a place for the program's name.
  if (words.find('%') != std::string::npos)
    throw RuntimeError(ErrorNumber::PathFileAccess);
  throw RuntimeError(ErrorNumber::PathFileAccess, words);
}

} // namespace

std::uint32_t WindowsProcesses::Shell(std::string_view program, const std::vector<std::string> &arguments,
                                      WindowStyle style) {
  ForgetEnded();
  const std::wstring file = ProgramFile(program);
  StartedProcess started;
  if (const std::uint32_t error = Start(file, CommandLineText(file, arguments), style, started); error != 0)
    ThrowStartError(error);
  mStarted.push_back(std::move(started.handle));
  return started.id;
}

ProcessHandle WindowsProcesses::OpenProcess(std::uint32_t processId) {
  SystemHandle process(::OpenProcess(SYNCHRONIZE, FALSE, processId));
  if (!process.IsOpen())
    return 0;
  mHandles.emplace(++mLastHandle, std::move(process));
  return mLastHandle;
}

void WindowsProcesses::WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) {
  const auto process = mHandles.find(handle);
  if (process == mHandles.end())
    return;
  while (::WaitForSingleObject(process->second.Get(), RepaintInterval) == WAIT_TIMEOUT)
    if (repaint != nullptr)
      repaint(context);
}

std::string WindowsProcesses::GetShortPathName(std::string_view path) {
  std::wstring systemPath;
  return ToSystemPath(path, systemPath) == 0 ? ToUtf8(PlainPath(ShortPath(systemPath))) : "";
}

void WindowsProcesses::ForgetEnded() {
  std::erase_if(mStarted,
                [](const SystemHandle &process) { return ::WaitForSingleObject(process.Get(), 0) != WAIT_TIMEOUT; });
}

} // namespace turfdesk
