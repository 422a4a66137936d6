// A small installation in a temporary folder: the skin, a registry, modules and pages. Each test gets a
// fresh one, and the program starts from nothing on it.
#pragma once

#include <QStringList>
#include <QTemporaryDir>

class Store {
 public:
  Store();
  ~Store();

  // Below the program folder, and below the folder that it stands in.
  QString Path(const QString& name = {}) const;
  QString PathBeside(const QString& name) const;
  QString DataPath(const QString& name = {}) const;

  void Write(const QString& name, const QByteArray& bytes) const;
  QByteArray Read(const QString& name) const;

  // A module of plain pages: `lines` are the page lines of its map ("0001.txm*Topic*Greeting"). Each
  // page reads "id page".
  void AddModule(const QString& id, const QString& name, const QStringList& lines) const;
  // A course in the registry; `moduleString` is the run of module ids.
  void AddCourse(const QString& name, const QString& moduleString,
                 const QString& repNum = QStringLiteral("1"));
  // A learner's record, and a progress file when `progress` is not empty.
  void AddLearner(const QString& firstName, const QString& lastName, const QString& course = {},
                  const QByteArray& progress = {}) const;

 private:
  void WriteRegistry() const;

  QTemporaryDir folder_;
  QString registry_;
};

// The bytes of a page file: lead-in and rich text.
QByteArray PageFile(const QString& text);
