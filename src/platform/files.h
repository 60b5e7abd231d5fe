#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "values/field_reader.h"

namespace korvinel::platform {

/// A file open for reading, byte by byte; closed with the object.
struct InputFile : ByteSource {
  [[nodiscard]] bool atEnd() { return peek() == end; }
  [[nodiscard]] virtual std::int64_t position() const = 0;  ///< bytes taken so far
};

/// A file open for writing; closed with the object. Every write is handed to the operating system before it returns.
struct OutputFile {
  virtual ~OutputFile() = default;
  virtual void write(std::string_view bytes) = 0;  ///< a RuntimeError (output) where not all bytes could be written
  virtual void synchronise() = 0;  ///< puts what was written on the disk; a RuntimeError (output) if it fails
};

/// Why no file can have a name.
enum class NameFault {
  none,
  tooLong,
  device,   ///< the system keeps it for a device
  letters,  ///< a separator of folders, or a character that the system forbids
};

/// A lock on a file. It ends with the object, and with the process however that ends.
struct FileLock {
  virtual ~FileLock() = default;
};

/// What came of trying to lock a file.
enum class LockOutcome {
  taken,
  held,         ///< by another program, or by another lock of this one
  notWritable,  ///< the file is not there and cannot be made
  notOffered,   ///< the file system has no locks
};
struct LockAttempt {
  LockOutcome outcome;
  std::unique_ptr<FileLock> lock;  ///< where it was taken
  std::string told;                ///< held: the holder's note, "" where it cannot be read; else the system's reason
};

/// Files by their path (UTF-8): the program's own notation "C:\QUARVEL5\..." under its root, else the host's paths.
/// What fails is a RuntimeError that names the file: input where a file cannot be read, output where it cannot be
/// written.
struct Files {
  virtual ~Files() = default;
  [[nodiscard]] virtual std::unique_ptr<InputFile> openForReading(const std::string& path) = 0;
  [[nodiscard]] virtual std::unique_ptr<OutputFile> create(
      const std::string& path) = 0;  ///< an existing file is emptied
  /// Creates a file that is not there yet; one that is, even as a link that leads nowhere, is an error.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> createNew(const std::string& path) = 0;
  [[nodiscard]] virtual std::unique_ptr<OutputFile> openForAppending(const std::string& path) = 0;
  [[nodiscard]] virtual bool exists(const std::string& path) = 0;
  virtual void remove(const std::string& path) = 0;
  virtual void rename(const std::string& from, const std::string& to) = 0;  ///< an existing `to` is an error
  /// Why no file can be made in `folder` under `name` (with its ending), by the rules of the system and the limit of
  /// the folder's own file system. Looks at the name alone: not whether it is taken, nor whether there is room.
  [[nodiscard]] virtual NameFault nameFault(const std::string& folder, const std::string& name) = 0;
  /// Locks a file without waiting. The file is made where it is missing and is never removed, for others may hold it
  /// open; who finds it locked reads `note`. Never throws a RuntimeError.
  [[nodiscard]] virtual LockAttempt lock(const std::string& path, const std::string& note) = 0;
  /// Names (without folder) of the files whose name ends in `ending`, upper and lower case alike. A folder that is not
  /// there has none.
  [[nodiscard]] virtual std::vector<std::string> list(const std::string& folder, const std::string& ending) = 0;
};

/// The files of this machine's disk; each system has its own. `dataFolder`: where the program's drive C lies, "" where
/// no path is to be mapped.
[[nodiscard]] std::unique_ptr<Files> hostFiles(const std::string& dataFolder);

}  // namespace korvinel::platform
