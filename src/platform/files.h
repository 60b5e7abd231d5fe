#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "values/byte_source.h"

namespace korvinel::platform {

/// A file open for reading, byte by byte; closed with the object.
struct InputFile : ByteSource {
  [[nodiscard]] bool atEnd() { return peek() == end; }
  [[nodiscard]] virtual std::int64_t position() const = 0;  ///< bytes taken so far
  [[nodiscard]] virtual std::int64_t size() const = 0;      ///< of the whole file in bytes, when it was opened
};

/// A file open for writing; closed with the object. Every write reaches the operating system before it returns.
struct OutputFile {
  virtual ~OutputFile() = default;
  virtual void write(std::string_view bytes) = 0;  ///< a RuntimeError (output) if not all bytes could be written
  virtual void synchronise() = 0;  ///< forces what was written onto the disk; a RuntimeError (output) if that fails
};

/// Why a name cannot be a file's.
enum class NameFault {
  none,
  tooLong,
  device,   ///< reserved by the system for a device
  letters,  ///< it contains a folder separator, or a character that the system forbids
};

/// A lock on a file. Released with the object, and when the process ends in whatever way.
struct FileLock {
  virtual ~FileLock() = default;
};

/// The result of trying to lock a file.
enum class LockOutcome {
  taken,
  held,         ///< by another program, or by another lock of this program
  notWritable,  ///< the file does not exist and cannot be created
  notOffered,   ///< the file system has no locks
  notOrdinary,  ///< it is a folder, a device or a link
};
struct LockAttempt {
  LockOutcome outcome;
  std::unique_ptr<FileLock> lock;  ///< if taken
  std::string
      told;  ///< if held: the holder's note, "" if unreadable; if notOrdinary: the path; else the system's reason
};

/// Files by their path (UTF-8): in the program's own notation "C:\QUARVEL5\..." under its root, else the host's paths.
/// Failures are RuntimeErrors that name the file: input if it cannot be read, output if it cannot be written.
struct Files {
  virtual ~Files() = default;
  [[nodiscard]] virtual std::unique_ptr<InputFile> openForReading(const std::string& path) = 0;
  [[nodiscard]] virtual std::unique_ptr<OutputFile> create(
      const std::string& path) = 0;  ///< an existing file is emptied
  /// Creates a new file; it is an error if one exists, even as a dangling link.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> createNew(const std::string& path) = 0;
  [[nodiscard]] virtual std::unique_ptr<OutputFile> openForAppending(const std::string& path) = 0;
  [[nodiscard]] virtual bool exists(const std::string& path) = 0;
  virtual void remove(const std::string& path) = 0;
  virtual void rename(const std::string& from, const std::string& to) = 0;  ///< an existing `to` is an error
  /// Why no file can be created in `folder` under `name` (with its ending), by the rules of the system and the limit of
  /// the folder's file system. Checks the name alone: not whether it is taken, nor whether there is room.
  [[nodiscard]] virtual NameFault nameFault(const std::string& folder, const std::string& name) = 0;
  /// Locks a file without waiting. The file is created if missing and never removed, as others may have it open; a
  /// program that finds it locked reads `note`. Never throws a RuntimeError.
  [[nodiscard]] virtual LockAttempt lock(const std::string& path, const std::string& note) = 0;
  /// Names (without folder) of the files whose name ends in `ending`, ignoring case. A missing folder has none.
  [[nodiscard]] virtual std::vector<std::string> list(const std::string& folder, const std::string& ending) = 0;
};

/// The files of this machine's disk; each system has its own. `dataFolder`: holds the program's drive C; "" if no path
/// is to be mapped.
[[nodiscard]] std::unique_ptr<Files> hostFiles(const std::string& dataFolder);

}  // namespace korvinel::platform
