// A folder beside the program folder that nothing may reach: it knows when one of its files was opened
// or anything in it was changed.
#pragma once

#include <QString>
#include <QStringList>

class Outside {
 public:
  // What the files of the folder say, wherever a test may look.
  static constexpr const char* kMarker = "OUTSIDE-MARKER";

  // Makes the folder with a file of every kind that the program reads.
  explicit Outside(const QString& folder);
  ~Outside();
  Outside(const Outside&) = delete;
  Outside& operator=(const Outside&) = delete;

  const QString& Folder() const { return folder_; }
  // The ways to a file of the folder that each place where a name comes from is tried with; all spellings
  // are tried on the paths themselves. The steps `up` ("../../") lead to the folder that it stands in.
  QStringList WaysTo(const QString& name, const QString& up) const;
  // What was opened, listed, made, changed or removed since the last call.
  QStringList Touched();

 private:
  void Watch(const QString& folder);

  QString folder_;
  int watch_ = -1;
};
