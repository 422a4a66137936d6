#include "frame/Settings.h"

#include "frame/ProgramState.h"
#include "platform/files/CodePage.h"
#include "platform/files/Paths.h"
#include "platform/registry/Registry.h"
#include "texts/Descriptions.h"

namespace {

QString RootKeyText(const char* name) {
  const RegistryKey* key = LocalMachine().OpenKey(QString::fromLatin1(kCatalogueRoot));
  if (key == nullptr) return {};
  const auto value = Registry::QueryValue(*key, QString::fromLatin1(name));
  if (!value || value->Type != static_cast<int>(RegistryType::String)) return {};
  return value->Text.section(QChar::Null, 0, 0);
}

}  // namespace

Settings ReadSettings() {
  const QString root = RootKeyText("DataRoot");
  const QString codePage = RootKeyText("CodePage");
  return {RealPath(root.isEmpty() ? QStringLiteral("data") : root),
          codePage.isEmpty() ? QString::fromLatin1(kDefaultCodePage) : codePage, RootKeyText("Scale"),
          RootKeyText("DisplayWarning") != u"0"};
}

QStringList LoadInstallation() {
  return LoadInstallation(RegistryFolders());
}

QStringList LoadInstallation(const QStringList& registryFolders) {
  SetCodePage(QString::fromLatin1(kDefaultCodePage));
  QStringList problems = LoadInstalledRegistry(registryFolders);
  const QString codePage = ReadSettings().CodePage;
  if (!SetCodePage(codePage)) {
    problems.append(Describe("code-page-unknown", codePage));
  } else if (CodePageName() != QString::fromLatin1(kDefaultCodePage)) {
    problems = LoadInstalledRegistry(registryFolders);
  }
  return problems;
}

void SetProgramPaths() {
  gAppPath = ProgramFolder();
  const QString root = ReadSettings().DataRoot;
  gDriveRoot = (root == u"/" ? QString() : root) + u'\\';
}
