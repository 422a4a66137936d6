// A folder beside the program folder that nothing may reach: it knows when one of its files was opened
// and whether anything in it was changed.
#pragma once

#include <QHash>
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
  // Every spelling of the way to a file of the folder that a course or a learner might try; the steps `up`
  // ("../../") lead to the folder that it stands in.
  QStringList WaysTo(const QString& name, const QString& up) const;
  // What was opened, made, changed or removed since the last call; a look at what is there is no reading.
  QStringList Touched();

 private:
  void Watch(const QString& folder);
  QStringList Events();
  QHash<QString, QByteArray> Content() const;

  QString folder_;
  int watch_ = -1;
  QHash<int, QString> watched_;
  QHash<QString, QByteArray> content_;
};
