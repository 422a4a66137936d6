// The learners of this machine: one folder each, with a record of who they are. Sign-in, registration
// and the profile form use it.
#pragma once

#include <QString>
#include <QStringList>

// The file in a learner's folder that holds the record.
inline const QString kUserFileName = QStringLiteral("User");

struct UserRecord {
  QString FirstName;
  QString LastName;
  QString Email;
};

// The program's name for "is there such a file". One that can't be looked at is a RunTimeError: a record
// taken for missing would be started anew.
bool PathExists(const QString& path);

// The name of a learner's folder: first + blank + last name whenever either is there, else empty.
QString LearnerFolder(const QString& firstName, const QString& lastName);
// Where in the data folder the learners' folders lie, in slashes.
QString UserDataBelow();
// The folder that holds the learners' folders.
QString UserDataPath();
// The path of a learner's folder. A name that is no plain folder name ("..", a slash, a NUL, more than
// 255 bytes) is a RunTimeError that names it, and so is one that a link takes out of the data folder.
QString LearnerPath(const QString& folderName);
// The path of a file in it, on the same terms.
QString LearnerFilePath(const QString& folderName, const QString& fileName);

// Makes what is missing of the folders, writes the learner's record in place of an older one, and signs
// the learner in. A new learner's folder appears with the record in it, or not at all. With neither name
// nothing is written and nobody is signed in. A failure is a RunTimeError, nobody new signed in.
void CreateUser(const QString& firstName, const QString& lastName, const QString& email);
// What keeps the folder of the learner data from being read or written to, as a description that names it;
// empty when nothing does. Makes the root of the data where it is missing.
QString DataFolderProblem();
// The names of the learners' folders. Links that leave the data folder are none.
QStringList ListUsers();
// Gives the signed-in learner new names and a new address: the record first, then the folder, then the
// program-wide variables. Fails silently, with what was done until then kept: then false. When the
// rename fails the record holds the new names and the learner goes on under the old folder.
bool UpdateUser(const QString& firstName, const QString& lastName, const QString& email);
// The record in a learner's folder. A missing or damaged one is a RunTimeError that names the file.
UserRecord ReadUserFile(const QString& folderName);
