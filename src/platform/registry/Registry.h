// The key-and-value tree of what is installed, loaded from registry export files. The catalogue and the
// movie players look things up in it.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>

// The numbers are those of the export files: hex(2) is an expandable text.
enum class RegistryType { None = 0, String = 1, ExpandString = 2, Binary = 3, Dword = 4, MultiString = 7 };

struct RegistryValue {
  int Type = 0;      // a RegistryType, or any other number that an export gave
  QString Text;      // of the text types, as stored: it may hold NULs
  QByteArray Bytes;  // of all other types; a dword has four, the lowest first
};

struct RegistryKey {
  QString Name;                                             // in the spelling that made it
  std::map<QString, std::unique_ptr<RegistryKey>> Subkeys;  // by case-folded name
  std::map<QString, RegistryValue> Values;                  // by case-folded name, "" is the default value
};

// The local machine's part of a registry. Names of keys and values compare without regard to case.
class Registry {
 public:
  Registry();

  // Adds the content of one export file; what is there already is overridden or deleted as it says.
  // "HKEY_CLASSES_ROOT" is "SOFTWARE\Classes" of the local machine, other roots are passed over.
  // Returns what is malformed, one description a place that names the line; everything else of
  // the file still counts.
  QStringList LoadText(const QByteArray& bytes);
  void Clear();
  // Whether a file loaded since then deletes keys or values, be they there or not.
  bool HasDeletions() const { return deletes_; }

  // A key by its path below the local machine, "SOFTWARE\Classes"; nullptr when there is none. Valid
  // until the next load.
  const RegistryKey* OpenKey(const QString& path) const;
  // The names of the subkeys, alphabetical without regard to case.
  static QStringList EnumSubkeys(const RegistryKey& key);
  // A value by its name, "" for the default value.
  static std::optional<RegistryValue> QueryValue(const RegistryKey& key, const QString& name);

 private:
  std::unique_ptr<RegistryKey> root_;
  bool deletes_ = false;
};

// The registry of this process.
Registry& LocalMachine();

// Where an installation keeps its registry files, in the order in which they are read: "registry" in
// the program folder, then the machine's: "/etc/tallowmere/registry", or what TALLOWMERE_REGISTRY in the
// environment names.
QStringList RegistryFolders();
// Loads LocalMachine() anew from all *.reg files of the folders, in name order. Returns one description
// for each file that cannot be read or is malformed, naming it.
QStringList LoadInstalledRegistry(const QStringList& folders = RegistryFolders());
