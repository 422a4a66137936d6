// The reader of one registry export file, which carries out what the file says on a tree of keys.
// Behind Registry::LoadText only.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>

#include "platform/registry/Registry.h"

class RegistryFile {
 public:
  explicit RegistryFile(RegistryKey& root);

  // The descriptions of the malformed places.
  QStringList Load(const QByteArray& bytes);
  // Whether the file deleted a key or a value, be it there or not.
  bool Deletes() const { return deletes_; }

 private:
  // A value's data while it is taken apart: a type and either text or bytes, or a deletion.
  struct Data {
    bool Delete = false;
    RegistryValue Value;
  };

  QString TakeLogicalLine();
  void ReadHeader();
  void ReadKey(const QString& line);
  void ReadValue(const QString& line);
  std::optional<Data> ReadData(QStringView data);
  std::optional<Data> ReadHex(QStringView data) const;
  RegistryKey* MakeKey(const QStringList& names);
  void DeleteKey(const QStringList& names);
  void Complain(const char* reason);

  RegistryKey& root_;
  QStringList lines_;
  qsizetype next_ = 0;   // the line to read next
  qsizetype first_ = 0;  // the first line of what is being read
  bool unicode_ = true;  // texts in hex are UTF-16, as in version 5; else code page
  RegistryKey* key_ = nullptr;
  bool passOver_ = true;  // the values belong to a key that was deleted or is not ours, or to a bad one
  bool behindKey_ = false, deletes_ = false;
  int entries_ = 0;  // keys and values made
  QStringList problems_;
};
