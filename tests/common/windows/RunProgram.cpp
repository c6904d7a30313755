// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/RunProgram.h"

#include "common/WorldHome.h"
#include "samples/Basics.h"

#include <windows.h>

#include <array>
#include <stdexcept>

namespace turfdesk::test {

namespace {

/// An argument as the runtime of the started program takes it apart. None of the tests has a quotation mark in one.
std::wstring Quoted(const std::string &argument) {
  std::wstring quoted = L'"' + samples::HostPath(argument).wstring();
  const std::size_t lastOther = quoted.find_last_not_of(L'\\');
  quoted.append(quoted.size() - lastOther - 1, L'\\');
  return quoted + L'"';
}

/// One of the standard streams of a program, in a file.
class Stream {
public:
  Stream(const std::filesystem::path &file, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    mHandle = CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, creation,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
    if (mHandle == INVALID_HANDLE_VALUE)
      throw std::runtime_error("no file for a program's stream");
  }
  Stream(const Stream &) = delete;
  Stream &operator=(const Stream &) = delete;
  ~Stream() { CloseHandle(mHandle); }

  HANDLE Handle() const { return mHandle; }

private:
  HANDLE mHandle;
};

int Run(const std::filesystem::path &program, std::wstring commandLine, const std::filesystem::path &streams) {
  const Stream input(streams / "input", GENERIC_READ, OPEN_EXISTING);
  const Stream output(streams / "output", GENERIC_WRITE, CREATE_NEW);
  const Stream errors(streams / "errors", GENERIC_WRITE, CREATE_NEW);
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = input.Handle();
  start.hStdOutput = output.Handle();
  start.hStdError = errors.Handle();
  PROCESS_INFORMATION process = {};
  if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                     &process) == FALSE)
    throw std::runtime_error("cannot start " + program.string() + ": " + std::to_string(GetLastError()));
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(status);
}

std::string TextOf(const std::filesystem::path &file) {
  const samples::Bytes content = samples::ReadFile(file);
  std::string text(content.begin(), content.end());
  for (std::size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", end))
    text.erase(end, 1);
  return text;
}

} // namespace

ProgramRun RunProgram(const std::filesystem::path &program, const std::vector<std::string> &arguments,
                      const std::string &input) {
  const TempFolder streams;
  samples::WriteFile(streams.Path() / "input", samples::ToBytes(input));
  std::wstring commandLine = Quoted(samples::Utf8(program));
  for (const std::string &argument : arguments)
    commandLine += L' ' + Quoted(argument);
  const int status = Run(program, std::move(commandLine), streams.Path());
  return {status, TextOf(streams.Path() / "output"), TextOf(streams.Path() / "errors")};
}

} // namespace turfdesk::test
