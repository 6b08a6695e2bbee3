#include "platform/failure.h"

#include <cerrno>
#include <new>
#include <stdexcept>

namespace {

struct NumberedText {
  int number;
  const char* text;
};

constexpr NumberedText messages[] = {
    {overflow, "Overflow"},
    {outOfMemory, "Out of memory"},
    {badSubscript, "Subscript out of range"},
    {divisionByZero, "Division by zero"},
    {typeMismatch, "Type mismatch"},
    {internalError, "Internal error"},
    {fileNotFound, "File not found"},
    {deviceError, "Device I/O error"},
    {diskFull, "Disk full"},
    {diskNotReady, "Disk not ready"},
    {pathFileAccess, "Path/File access error"},
    {pathNotFound, "Path not found"},
    {cancelled, "Cancel was selected."},
};

const char* messageOf(int number) noexcept {
  for (const NumberedText& message : messages) {
    if (message.number == number) return message.text;
  }
  return "Application-defined or object-defined error";
}

struct SystemError {
  std::errc error;
  int number;
};

constexpr SystemError systemErrors[] = {
    {std::errc::no_such_file_or_directory, fileNotFound},
    {std::errc::not_a_directory, pathNotFound},
    {std::errc::permission_denied, pathFileAccess},
    {std::errc::operation_not_permitted, pathFileAccess},
    {std::errc::is_a_directory, pathFileAccess},
    {std::errc::read_only_file_system, pathFileAccess},
    {std::errc::no_such_device, diskNotReady},
    {std::errc::no_such_device_or_address, diskNotReady},
    {std::errc::no_space_on_device, diskFull},
    {std::errc::not_enough_memory, outOfMemory},
// Known to some systems only, and without a portable name.
#ifdef EDQUOT
    {static_cast<std::errc>(EDQUOT), diskFull},
#endif
#ifdef ENOMEDIUM
    {static_cast<std::errc>(ENOMEDIUM), diskNotReady},
#endif
};

}  // namespace

Failure::Failure(int number) : number_(number) {}

int Failure::number() const noexcept { return number_; }

const char* Failure::what() const noexcept { return messageOf(number_); }

std::string failureText(int number) { return messageOf(number); }

std::string numberedFailure(int number) {
  return "[" + std::to_string(number) + "] " + failureText(number);
}

int failureNumberOf(std::error_code error) {
  for (const SystemError& known : systemErrors) {
    if (error == known.error) return known.number;
  }
  return deviceError;
}

int trapFailure(const std::function<void()>& body) {
  try {
    body();
    return 0;
  } catch (const Failure& failure) {
    return failure.number();
  } catch (const std::bad_alloc&) {
    return outOfMemory;
  } catch (const std::length_error&) {
    return outOfMemory;
  } catch (...) {
    return internalError;
  }
}
