// Failures: the numbered errors that a command can end with, their texts, and the one trap that
// turns whatever escaped from a command into such a number.
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <system_error>

enum FailureNumber : int {
  overflow = 6,
  outOfMemory = 7,
  badSubscript = 9,
  divisionByZero = 11,
  typeMismatch = 13,
  internalError = 51,
  fileNotFound = 53,
  deviceError = 57,
  diskFull = 61,
  diskNotReady = 71,
  pathFileAccess = 75,
  pathNotFound = 76,
  cancelled = 32755
};

class Failure : public std::exception {
 public:
  explicit Failure(int number);
  int number() const noexcept;
  // The text of the number, as failureText gives it.
  const char* what() const noexcept override;

 private:
  int number_;
};

// The usual system message of the number, without its number. A number without a message of its
// own gives "Application-defined or object-defined error".
std::string failureText(int number);

// Both: "[53] File not found".
std::string numberedFailure(int number);

// The failure number that stands for an error of the operating system: missing file 53, missing
// folder 76, no permission, folder instead of file or read-only 75, missing device 71, disk full
// or quota used up 61, no memory 7, everything else 57.
int failureNumberOf(std::error_code error);

// Runs `body`. Gives 0, or the number of the Failure that left it; lack of memory and sizes beyond
// any container give 7, every other exception 51. Nothing escapes.
int trapFailure(const std::function<void()>& body);
