#include "platform/windows/disk_files.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/buffered_input.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/file_lock.h"
#include "platform/windows/wide_text.h"
#include "values/code_page.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

/// Why the system does not open a file, or that it is not an ordinary one.
struct Refusal {
  std::string systemReason = {};
  bool notOrdinary = false;
};

[[noreturn]] void fail(Cause cause, const std::string& path, const Refusal& refusal, const std::string& newPath = "") {
  throw RuntimeError(Facts{.cause = cause,
                           .path = path,
                           .newPath = newPath,
                           .notOrdinary = refusal.notOrdinary,
                           .systemReason = refusal.systemReason});
}

/// With the system's reason for an error number.
[[noreturn]] void fail(Cause cause, const std::string& path, DWORD error, const std::string& newPath = "") {
  fail(cause, path, Refusal{.systemReason = systemMessage(error)}, newPath);
}

/// Whether the system treats the path as a device. Opening it would access the device.
bool namesDevice(const std::wstring& path) {
  std::wstring full(static_cast<std::size_t>(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr)), L'\0');
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full.starts_with(L"\\\\.\\");
}

/// The name up to its first dot, without trailing blanks. Older systems treat "NUL.QVD" as the device, newer ones only
/// "NUL"; a recording must be readable on all of them.
std::wstring stemOf(const std::wstring& name) {
  const std::wstring stem = name.substr(0, name.find(L'.'));
  return stem.substr(0, stem.find_last_not_of(L' ') + 1);
}

/// The system drops blanks and dots from the end of a name.
bool holdsForbiddenLetters(const std::wstring& name) {
  const auto isControl = [](wchar_t letter) { return letter < 0x20; };
  return name.empty() || name.find_first_of(L"<>:\"/\\|?*") != std::wstring::npos || name.ends_with(L' ') ||
         name.ends_with(L'.') || std::any_of(name.begin(), name.end(), isControl);
}

/// In UTF-16 units.
std::size_t longestName(const std::wstring& folder) {
  constexpr DWORD usual = 255;
  std::wstring volume(MAX_PATH, L'\0');
  DWORD longest = usual;
  if (GetVolumePathNameW(folder.c_str(), volume.data(), MAX_PATH) == 0 ||
      GetVolumeInformationW(volume.c_str(), nullptr, 0, nullptr, &longest, nullptr, nullptr, 0) == 0)
    return usual;
  return longest;
}

std::optional<Refusal> openOrdinaryFile(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                                        FileHandle& file) {
  const std::wstring wide = wideFromUtf8(path);
  if (namesDevice(wide)) return Refusal{.notOrdinary = true};
  file = FileHandle(CreateFileW(wide.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.isOpen()) return Refusal{.systemReason = systemMessage(GetLastError())};
  if (GetFileType(file.get()) != FILE_TYPE_DISK) return Refusal{.notOrdinary = true};
  return std::nullopt;
}

class DiskInput : public BufferedInput {
 public:
  DiskInput(FileHandle file, std::string path)
      : BufferedInput(sizeOf(file)), file_(std::move(file)), path_(std::move(path)) {}

 private:
  static std::int64_t sizeOf(const FileHandle& file) {
    LARGE_INTEGER size{};
    return GetFileSizeEx(file.get(), &size) != 0 ? size.QuadPart : 0;
  }
  std::size_t readPiece(std::span<char> room) override {
    DWORD count = 0;
    if (ReadFile(file_.get(), room.data(), static_cast<DWORD>(room.size()), &count, nullptr) == 0)
      fail(Cause::notReadable, path_, GetLastError());
    return count;
  }

  FileHandle file_;
  std::string path_;
};

class DiskOutput : public OutputFile {
 public:
  DiskOutput(FileHandle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  void write(std::string_view bytes) override {
    constexpr std::size_t mostAtOnce = 1 << 24;
    while (!bytes.empty()) {
      const auto size = static_cast<DWORD>(std::min(bytes.size(), mostAtOnce));
      DWORD count = 0;
      if (WriteFile(file_.get(), bytes.data(), size, &count, nullptr) == 0)
        fail(Cause::notWritable, path_, GetLastError());
      if (count == 0) fail(Cause::notWritable, path_, ERROR_DISK_FULL);
      bytes.remove_prefix(count);
    }
  }

  void synchronise() override {
    if (FlushFileBuffers(file_.get()) == 0) fail(Cause::notWritable, path_, GetLastError());
  }

 private:
  FileHandle file_;
  std::string path_;
};

/// Others may read the file meanwhile, but not write it.
std::unique_ptr<OutputFile> openForWriting(const std::string& path, DWORD access, DWORD disposition,
                                           DWORD share = FILE_SHARE_READ) {
  FileHandle file;
  if (const auto refusal = openOrdinaryFile(path, access, share, disposition, file))
    fail(Cause::notWritable, path, *refusal);
  return std::make_unique<DiskOutput>(std::move(file), path);
}

void addWhenListed(const WIN32_FIND_DATAW& entry, const std::string& ending, std::vector<std::string>& names) {
  const std::string name = utf8FromWide(entry.cFileName);
  const bool isFile = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  if (isFile && upperCase(name).ends_with(upperCase(ending))) names.push_back(name);
}

}  // namespace

std::unique_ptr<InputFile> DiskFiles::openForReading(const std::string& path) {
  constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  FileHandle file;
  if (const auto refusal = openOrdinaryFile(path, GENERIC_READ, shareAll, OPEN_EXISTING, file))
    fail(Cause::notReadable, path, *refusal);
  return std::make_unique<DiskInput>(std::move(file), path);
}

std::unique_ptr<OutputFile> DiskFiles::create(const std::string& path) {
  return openForWriting(path, GENERIC_WRITE, CREATE_ALWAYS);
}

std::unique_ptr<OutputFile> DiskFiles::createNew(const std::string& path) {
  // It can be removed while being written, by code that ends the program in the middle of it.
  return openForWriting(path, GENERIC_WRITE, CREATE_NEW, FILE_SHARE_READ | FILE_SHARE_DELETE);
}

std::unique_ptr<OutputFile> DiskFiles::openForAppending(const std::string& path) {
  // With only the right to append, every write goes to the end.
  return openForWriting(path, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS);
}

bool DiskFiles::exists(const std::string& path) {
  const std::wstring wide = wideFromUtf8(path);
  return namesDevice(wide) || GetFileAttributesW(wide.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void DiskFiles::remove(const std::string& path) {
  if (DeleteFileW(wideFromUtf8(path).c_str()) == 0) fail(Cause::notRemoved, path, GetLastError());
}

void DiskFiles::rename(const std::string& from, const std::string& to) {
  if (MoveFileExW(wideFromUtf8(from).c_str(), wideFromUtf8(to).c_str(), MOVEFILE_WRITE_THROUGH) == 0)
    fail(Cause::notRenamed, from, GetLastError(), to);
}

NameFault DiskFiles::nameFault(const std::string& folder, const std::string& name) {
  const std::wstring wide = wideFromUtf8(name);
  if (holdsForbiddenLetters(wide)) return NameFault::letters;
  if (namesDevice(wideFromUtf8(folder + name)) || namesDevice(stemOf(wide))) return NameFault::device;
  const std::wstring place = wideFromUtf8(folder);
  const bool fits = wide.size() <= longestName(place) && place.size() + wide.size() < MAX_PATH;
  return fits ? NameFault::none : NameFault::tooLong;
}

LockAttempt DiskFiles::lock(const std::string& path, const std::string& note) { return lockFile(path, note); }

std::vector<std::string> DiskFiles::list(const std::string& folder, const std::string& ending) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW entry;
  const std::wstring pattern = wideFromUtf8(folder.ends_with('\\') ? folder + "*" : folder + "\\*");
  HANDLE search = FindFirstFileW(pattern.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return names;
  do addWhenListed(entry, ending, names);
  while (FindNextFileW(search, &entry) != 0);
  FindClose(search);
  std::sort(names.begin(), names.end());
  return names;
}

std::unique_ptr<Files> hostFiles(const std::string& dataFolder) { return std::make_unique<DiskFiles>(dataFolder); }

}  // namespace korvinel::platform
