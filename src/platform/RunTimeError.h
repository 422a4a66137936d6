// The one exception of the program, and the ways to run code with errors ignored.
// Thrown anywhere; caught by the event dispatcher, which shows the description and goes on.
#pragma once

#include <QString>
#include <exception>
#include <utility>

// An operation that was abandoned. The description is shown to the learner as it stands,
// so it names the file or thing at fault.
class RunTimeError : public std::exception {
 public:
  explicit RunTimeError(QString description);

  const QString& Description() const { return description_; }
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QString description_;
  QByteArray utf8_;
};

// Writes the description to the program's log, each one once in a run, for those who look after the machine.
void LogOnce(const RunTimeError& error);

// Runs one statement with errors ignored: a failing statement is skipped and the next one runs.
// True when the statement ran to its end.
template <typename Statement>
bool IgnoreErrors(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

// The same where an error that the learner is not told of is a fault of the installation: it is logged.
template <typename Statement>
bool LogErrors(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RunTimeError& error) {
    LogOnce(error);
    return false;
  }
}
