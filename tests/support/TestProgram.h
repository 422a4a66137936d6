// A program folder that lives as long as a test, files in it, and what the test programs print and
// compare with.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/files/Paths.h"
#include "support/Errors.h"
#include "support/Files.h"

// A fresh program folder, in force until it goes.
class TestProgram {
 public:
  TestProgram() { SetProgramFolder(Folder()); }
  ~TestProgram() {
    SetProgramFolder({});
    SetCodePage(kDefaultCodePage);
  }
  TestProgram(const TestProgram&) = delete;
  TestProgram& operator=(const TestProgram&) = delete;

  QString Folder() const { return dir_.path(); }
  QString Path(const QString& relative) const { return dir_.filePath(relative); }

  void MakeDir(const QString& relative) const { QDir(Folder()).mkpath(relative); }
  // Makes the folders on the way too.
  void Write(const QString& relative, const QByteArray& bytes) const { WriteFileAt(Path(relative), bytes); }
  QByteArray Read(const QString& relative) const {
    QFile file(Path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
  }
  // Everything in a folder, sorted: also finds what a save left behind.
  QStringList Names(const QString& relative) const {
    return QDir(Path(relative))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }

 private:
  QTemporaryDir dir_;
};
