#include "platform/registry/Registry.h"

#include <QDir>

#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/registry/RegistryFile.h"
#include "texts/Descriptions.h"

namespace {

// Behind so many places a message says only how many more there are.
constexpr qsizetype kPlacesNamed = 3;

QString DescribeFile(const QString& path, const QStringList& places) {
  QStringList named = places.mid(0, kPlacesNamed);
  if (places.size() > kPlacesNamed) {
    named.append(Describe("registry-more", QString::number(places.size() - kPlacesNamed)));
  }
  return Describe("registry-damaged", path, named.join(QStringLiteral("; ")));
}

}  // namespace

Registry::Registry() {
  Clear();
}

void Registry::Clear() {
  root_ = std::make_unique<RegistryKey>();
}

QStringList Registry::LoadText(const QByteArray& bytes) {
  RegistryFile file(*root_);
  const QStringList problems = file.Load(bytes);
  deletes_ = deletes_ || file.Deletes();
  return problems;
}

const RegistryKey* Registry::OpenKey(const QString& path) const {
  const RegistryKey* key = root_.get();
  for (const QString& name : path.split(u'\\', Qt::SkipEmptyParts)) {
    const auto found = key->Subkeys.find(name.toCaseFolded());
    if (found == key->Subkeys.end()) return nullptr;
    key = found->second.get();
  }
  return key;
}

QStringList Registry::EnumSubkeys(const RegistryKey& key) {
  QStringList names;
  for (const auto& [folded, subkey] : key.Subkeys)
    names.append(subkey->Name);
  return names;
}

std::optional<RegistryValue> Registry::QueryValue(const RegistryKey& key, const QString& name) {
  const auto found = key.Values.find(name.toCaseFolded());
  if (found == key.Values.end()) return std::nullopt;
  return found->second;
}

Registry& LocalMachine() {
  static Registry registry;
  return registry;
}

QStringList RegistryFolders() {
  return {ProgramFolder() + QStringLiteral("/registry"),
          qEnvironmentVariable("TALLOWMERE_REGISTRY", QStringLiteral("/etc/tallowmere/registry"))};
}

QStringList LoadInstalledRegistry(const QStringList& folders) {
  LocalMachine().Clear();
  QStringList problems;
  for (const QString& folder : folders) {
    const QDir dir(RealPath(folder));
    for (const QString& name : dir.entryList({QStringLiteral("*.reg")}, QDir::Files, QDir::Name)) {
      const QString path = dir.filePath(name);
      try {
        const QStringList places = LocalMachine().LoadText(ReadFile(path, kTextFileLimit));
        if (!places.isEmpty()) problems.append(DescribeFile(path, places));
      } catch (const RunTimeError& error) {
        problems.append(error.Description());
      }
    }
  }
  return problems;
}
