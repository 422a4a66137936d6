#include "learners/UserStore.h"

#include <errno.h>

#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/files/QuotedFields.h"
#include "texts/Descriptions.h"

namespace {

const QString kProductFolder = QStringLiteral("Tallowmere Manager 1.0");
const QString kUserDataFolder = QStringLiteral("UserData");

QString UserPath(const QString& folderName) {
  return LearnerFilePath(folderName, kUserFileName);
}

// A link on the way may lead anywhere below the data folder. Whoever wants the learners elsewhere says so
// in the installation.
bool LiesInData(const QString& path) {
  return !ContainedPathIn(gDriveRoot, path).isEmpty();
}

QString PathBelow(const QString& folder, const QString& name) {
  if (!IsFileName(name)) throw RunTimeError(Describe("name-unusable", name));
  const QString path = folder + u'\\' + name;
  if (!LiesInData(path)) throw RunTimeError(Describe("outside-data", NamedPath(path)));
  return path;
}

void SignIn(const QString& firstName, const QString& lastName, const QString& email) {
  gUserFirstName = firstName;
  gUserLastName = lastName;
  gUserEmail = email;
}

}  // namespace

bool PathExists(const QString& path) {
  const int error = FileError(path);
  if (error != 0 && error != ENOENT)
    throw RunTimeError(Describe("file-unreadable", RealPath(path), SystemReason(error)));
  return error == 0;
}

QString LearnerFolder(const QString& firstName, const QString& lastName) {
  if (firstName.isEmpty() && lastName.isEmpty()) return {};
  return firstName + u' ' + lastName;
}

QString UserDataBelow() {
  return kProductFolder + u'/' + kUserDataFolder;
}

QString UserDataPath() {
  return gDriveRoot + kProductFolder + u'\\' + kUserDataFolder;
}

QString LearnerPath(const QString& folderName) {
  return PathBelow(UserDataPath(), folderName);
}

QString LearnerFilePath(const QString& folderName, const QString& fileName) {
  return PathBelow(LearnerPath(folderName), fileName);
}

void CreateUser(const QString& firstName, const QString& lastName, const QString& email) {
  const QString folder = LearnerFolder(firstName, lastName);
  if (folder.isEmpty()) {  // nobody: whoever was signed in before must not be recorded for them
    SignIn(firstName, lastName, email);
    return;
  }
  const QString learner = LearnerPath(folder);
  MakeFolder(gDriveRoot);  // a fresh installation has no data folder yet
  MakeFolder(gDriveRoot + kProductFolder);
  MakeFolder(UserDataPath());
  const QByteArray record = EncodeText(QuotedRecord({firstName, lastName, email}));
  if (FolderExists(learner)) {
    SaveFile(UserPath(folder), record);
  } else {
    MakeFolderWithFile(learner, kUserFileName, record, gDriveRoot + kProductFolder);
  }
  SignIn(firstName, lastName, email);
}

QString DataFolderProblem() {
  QString deepest, problem;
  const auto fails = [&](const QString& folder, FolderUse use, const char* description) {
    const int error = TryFolder(folder, use);
    if (error != 0 && error != ENOENT) problem = Describe(description, RealPath(folder), SystemReason(error));
    if (error == 0) deepest = folder;
    return error != 0;
  };
  try {
    MakeFolder(gDriveRoot);
  } catch (const RunTimeError& error) {
    return error.Description();
  }
  if (!LiesInData(UserDataPath())) return Describe("outside-data", RealPath(UserDataPath()));
  if (!fails(gDriveRoot, FolderUse::Enter, "data-unreadable") &&
      !fails(gDriveRoot + kProductFolder, FolderUse::Enter, "data-unreadable")) {
    fails(UserDataPath(), FolderUse::List, "data-unreadable");
  }
  if (problem.isEmpty()) fails(deepest, FolderUse::Change, "data-unwritable");
  // A new learner's folder is made in the one above.
  if (problem.isEmpty() && deepest == UserDataPath())
    fails(gDriveRoot + kProductFolder, FolderUse::Change, "data-unwritable");
  return problem;
}

QStringList ListUsers() {
  const QString place = UserDataPath() + u'\\';
  if (!LiesInData(place)) return {};
  QStringList names = ListFolders(place);
  names.removeIf([&](const QString& name) {
    if (!LiesInData(place + name)) return true;
    // A hidden folder is the file system's own, unless a learner's name begins with a full stop.
    return name.startsWith(u'.') && !FileExists(place + name + u'\\' + kUserFileName);
  });
  return names;
}

bool UpdateUser(const QString& firstName, const QString& lastName, const QString& email) {
  const QString oldFolder = LearnerFolder(gUserFirstName, gUserLastName);
  const QString newFolder = LearnerFolder(firstName, lastName);
  if (oldFolder.isEmpty() || newFolder.isEmpty()) return false;
  return IgnoreErrors([&] {
    // The record comes first: when the folder cannot be renamed it holds the new names already.
    SaveFile(UserPath(oldFolder), EncodeText(QuotedRecord({firstName, lastName, email, {}, {}})));
    RenameFolder(LearnerPath(oldFolder), LearnerPath(newFolder));
    SignIn(firstName, lastName, email);
  });
}

UserRecord ReadUserFile(const QString& folderName) {
  const QString path = UserPath(folderName);
  QuotedFieldReader reader(ReadFile(path, kTextFileLimit), RealPath(path));
  UserRecord user;
  for (QString* field : {&user.FirstName, &user.LastName, &user.Email})
    *field = reader.ReadField();
  return user;
}
