#include "harness/remote_memory.h"

#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {

RemoteMemory::RemoteMemory(HWND window, std::size_t bytes)
    : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE,
                           processOf(window))),
      address_(process_ != nullptr ? VirtualAllocEx(process_, nullptr, bytes,
                                                    MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)
                                   : nullptr) {
  if (address_ == nullptr) {
    const DWORD error = GetLastError();
    if (process_ != nullptr) {
      CloseHandle(process_);
    }
    throw Failure("the memory of the program cannot be reached, error " + std::to_string(error));
  }
}

RemoteMemory::~RemoteMemory() {
  VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
  CloseHandle(process_);
}

void* RemoteMemory::address(std::size_t offset) const {
  return static_cast<std::byte*>(address_) + offset;
}

void RemoteMemory::write(const void* data, std::size_t bytes, std::size_t offset) {
  if (WriteProcessMemory(process_, address(offset), data, bytes, nullptr) == FALSE) {
    throw Failure("the memory of the program cannot be written");
  }
}

void RemoteMemory::read(void* data, std::size_t bytes, std::size_t offset) const {
  if (ReadProcessMemory(process_, address(offset), data, bytes, nullptr) == FALSE) {
    throw Failure("the memory of the program cannot be read");
  }
}

std::wstring RemoteMemory::getText(std::size_t length, std::size_t offset) const {
  std::wstring text(length, L'\0');
  read(text.data(), length * sizeof(wchar_t), offset);
  text.resize(text.find(L'\0') == std::wstring::npos ? length : text.find(L'\0'));
  return text;
}

}  // namespace harness
