#include "platform/registry/RegistryFile.h"

#include <QStringDecoder>
#include <utility>

#include "platform/files/CodePage.h"
#include "texts/Descriptions.h"

namespace {

constexpr qsizetype kMaxDepth = 64;         // keys above each other
constexpr qsizetype kMaxKeyName = 255;      // characters
constexpr qsizetype kMaxValueName = 16383;  // characters
constexpr int kMaxEntries = 200000;         // keys and values of one file
constexpr qsizetype kMaxProblems = 100;     // described; a file that is no export has no end of them

QString DecodeFile(const QByteArray& bytes) {
  if (bytes.startsWith("\xFF\xFE")) return QStringDecoder(QStringDecoder::Utf16LE).decode(bytes);
  if (bytes.startsWith("\xFE\xFF")) return QStringDecoder(QStringDecoder::Utf16BE).decode(bytes);
  return DecodeCourseText(bytes);
}

// The index of the quote that closes a text which begins behind `start`, -1 when it stays open.
qsizetype ClosingQuote(QStringView line, qsizetype start) {
  for (qsizetype i = start; i < line.size(); ++i) {
    if (line.at(i) == u'\\') {
      ++i;
    } else if (line.at(i) == u'"') {
      return i;
    }
  }
  return -1;
}

// \\ and \" stand for the second character; any other backslash stands for itself.
QString Unescape(QStringView text) {
  QString plain;
  plain.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool escape =
        text.at(i) == u'\\' && i + 1 < text.size() && (text.at(i + 1) == u'\\' || text.at(i + 1) == u'"');
    if (escape) ++i;
    plain += text.at(i);
  }
  return plain;
}

bool IsEndOrComment(QStringView rest) {
  rest = rest.trimmed();
  return rest.isEmpty() || rest.startsWith(u';');
}

// Where the data of a value line begins, behind its "="; -1 when the line is no value. A name that is
// left open takes `nameEnd` to -1.
qsizetype DataStart(QStringView line, qsizetype& nameEnd) {
  nameEnd = 1;
  if (line.startsWith(u'"')) nameEnd = ClosingQuote(line, 1);
  if (nameEnd < 0) return -1;
  qsizetype i = line.startsWith(u'"') ? nameEnd + 1 : 1;
  while (i < line.size() && line.at(i).isSpace())
    ++i;
  if (i >= line.size() || line.at(i) != u'=') return -1;
  ++i;
  while (i < line.size() && line.at(i).isSpace())
    ++i;
  return i;
}

bool IsHex(QStringView data) {
  return data.startsWith(u"hex", Qt::CaseInsensitive);
}

bool IsTextType(int type) {
  return type == static_cast<int>(RegistryType::String) ||
         type == static_cast<int>(RegistryType::ExpandString) ||
         type == static_cast<int>(RegistryType::MultiString);
}

// An installer of a 32-bit course on a 64-bit machine wrote below one step more.
void DropWow64Step(QStringList& names) {
  if (names.isEmpty() || names.first().compare(u"SOFTWARE", Qt::CaseInsensitive) != 0) return;
  for (const int step : {2, 1}) {
    if (names.size() > step && names.at(step).compare(u"WOW6432Node", Qt::CaseInsensitive) == 0) {
      names.removeAt(step);
    }
  }
}

}  // namespace

RegistryFile::RegistryFile(RegistryKey& root) : root_(root) {}

QStringList RegistryFile::Load(const QByteArray& bytes) {
  QString text = DecodeFile(bytes);
  if (text.endsWith(u'\x1A')) text.chop(1);  // old editors mark the end of a file with it
  lines_ = text.split(u'\n');
  ReadHeader();
  while (next_ < lines_.size()) {
    const QString line = TakeLogicalLine();
    if (line.isEmpty() || line.startsWith(u';')) continue;
    if (line.startsWith(u'[')) {
      ReadKey(line);
    } else {
      ReadValue(line);
    }
  }
  return problems_;
}

void RegistryFile::ReadHeader() {
  while (next_ < lines_.size() && lines_.at(next_).trimmed().isEmpty())
    ++next_;
  first_ = next_;
  const QString header = next_ < lines_.size() ? lines_.at(next_).trimmed() : QString();
  const bool version4 = header == u"REGEDIT4";
  if (version4 || header == u"Windows Registry Editor Version 5.00") {
    unicode_ = !version4;
    ++next_;
  } else {
    Complain("registry-no-header");
    if (!header.startsWith(u'[')) ++next_;
  }
}

// A line with what continues it: hex data behind a "\", a text up to its closing quote.
QString RegistryFile::TakeLogicalLine() {
  first_ = next_;
  QString line = lines_.at(next_++).trimmed();
  if (!line.startsWith(u'"') && !line.startsWith(u'@')) return line;
  qsizetype nameEnd = 0;
  const qsizetype data = DataStart(line, nameEnd);
  if (data < 0 || data >= line.size()) return line;
  if (IsHex(QStringView(line).mid(data))) {
    while (line.endsWith(u'\\') && next_ < lines_.size()) {
      line.chop(1);
      line += lines_.at(next_++).trimmed();
    }
    return line;
  }
  if (line.at(data) != u'"' || ClosingQuote(line, data + 1) >= 0) return line;
  // A text over several lines. An open one must not swallow the keys behind it.
  QString text = lines_.at(first_);
  for (qsizetype i = next_; i < lines_.size() && !lines_.at(i).startsWith(u'['); ++i) {
    text += u'\n' + lines_.at(i);
    if (ClosingQuote(lines_.at(i), 0) < 0) continue;
    next_ = i + 1;
    return text.trimmed();
  }
  return line;
}

void RegistryFile::ReadKey(const QString& line) {
  key_ = nullptr;
  passOver_ = true;
  behindKey_ = true;
  const qsizetype close = line.lastIndexOf(u']');
  if (close < 0 || !IsEndOrComment(QStringView(line).mid(close + 1))) return Complain("registry-bad-key");
  QString path = line.mid(1, close - 1);
  const bool remove = path.startsWith(u'-');
  if (remove) path.remove(0, 1);

  QStringList names = path.split(u'\\');
  const QString hive = names.takeFirst().trimmed().toUpper();
  if (!hive.startsWith(u"HKEY_")) return Complain("registry-bad-key");
  if (names.size() > 1 && names.constLast().isEmpty()) names.removeLast();
  if (names.contains(QString())) return Complain("registry-bad-key");
  if (hive == u"HKEY_CLASSES_ROOT") {
    names = QStringList{QStringLiteral("SOFTWARE"), QStringLiteral("Classes")} + names;
  } else if (hive != u"HKEY_LOCAL_MACHINE") {
    return;
  }
  DropWow64Step(names);
  if (names.size() > kMaxDepth) return Complain("registry-too-deep");
  for (const QString& name : names) {
    if (name.size() > kMaxKeyName) return Complain("registry-long-name");
  }
  if (remove) return DeleteKey(names);
  key_ = MakeKey(names);
  passOver_ = key_ == nullptr;
}

void RegistryFile::ReadValue(const QString& line) {
  qsizetype nameEnd = 0;
  const bool looksRight = line.startsWith(u'"') || line.startsWith(u'@');
  const qsizetype start = looksRight ? DataStart(line, nameEnd) : -1;
  if (start < 0) return Complain("registry-bad-value");
  if (!behindKey_) return Complain("registry-no-key");
  const std::optional<Data> data = ReadData(QStringView(line).mid(start));
  if (!data) return;
  if (passOver_) return;
  const QString name = line.startsWith(u'@') ? QString() : Unescape(QStringView(line).mid(1, nameEnd - 1));
  if (name.size() > kMaxValueName) return Complain("registry-long-name");
  if (data->Delete) {
    deletes_ = true;
    key_->Values.erase(name.toCaseFolded());
    return;
  }
  if (++entries_ > kMaxEntries) return Complain("registry-too-many");
  key_->Values[name.toCaseFolded()] = data->Value;
}

// The data behind the "=". What is malformed has been described when nothing comes back.
std::optional<RegistryFile::Data> RegistryFile::ReadData(QStringView data) {
  if (data.startsWith(u'"')) {
    const qsizetype close = ClosingQuote(data, 1);
    if (close < 0 || !IsEndOrComment(data.mid(close + 1))) {
      Complain(close < 0 ? "registry-open-text" : "registry-bad-value");
      return std::nullopt;
    }
    return Data{false, {static_cast<int>(RegistryType::String), Unescape(data.mid(1, close - 1)), {}}};
  }
  const qsizetype comment = data.indexOf(u';');
  if (comment >= 0) data = data.left(comment);
  data = data.trimmed();
  if (data == u"-") return Data{true, {}};
  std::optional<Data> result;
  if (data.startsWith(u"dword:", Qt::CaseInsensitive)) {
    const QStringView digits = data.mid(6).trimmed();
    bool valid = false;
    const uint number = digits.toUInt(&valid, 16);
    if (valid && digits.size() <= 8) {
      QByteArray bytes;
      for (int shift = 0; shift < 32; shift += 8)
        bytes.append(static_cast<char>(number >> shift & 0xFFU));
      result = Data{false, {static_cast<int>(RegistryType::Dword), {}, bytes}};
    }
  } else if (IsHex(data)) {
    result = ReadHex(data.mid(3));
  }
  if (!result) Complain("registry-bad-value");
  return result;
}

// hex:01,02 or hex(2):01,02 without its first word.
std::optional<RegistryFile::Data> RegistryFile::ReadHex(QStringView data) const {
  int type = static_cast<int>(RegistryType::Binary);
  bool valid = true;
  if (data.startsWith(u'(')) {
    const qsizetype close = data.indexOf(u')');
    if (close < 0) return std::nullopt;
    type = data.mid(1, close - 1).toInt(&valid, 16);
    data = data.mid(close + 1);
  }
  if (!valid || !data.startsWith(u':')) return std::nullopt;
  data = data.mid(1).trimmed();
  QByteArray bytes;
  while (!data.isEmpty()) {
    const qsizetype comma = data.indexOf(u',');
    const QStringView digits = (comma < 0 ? data : data.left(comma)).trimmed();
    data = comma < 0 ? QStringView() : data.mid(comma + 1).trimmed();
    const uint byte = digits.toUInt(&valid, 16);
    if (!valid || digits.size() > 2) return std::nullopt;
    bytes.append(static_cast<char>(byte));
  }
  if (!IsTextType(type)) return Data{false, {type, {}, bytes}};
  const QString text =
      unicode_ ? QString(QStringDecoder(QStringDecoder::Utf16LE, QStringDecoder::Flag::ConvertInitialBom)
                             .decode(bytes))
               : DecodePiece(bytes, false);
  return Data{false, {type, text, {}}};
}

RegistryKey* RegistryFile::MakeKey(const QStringList& names) {
  RegistryKey* key = &root_;
  for (const QString& name : names) {
    std::unique_ptr<RegistryKey>& subkey = key->Subkeys[name.toCaseFolded()];
    if (subkey == nullptr) {
      subkey = std::make_unique<RegistryKey>();
      subkey->Name = name;
      ++entries_;
    }
    key = subkey.get();
  }
  if (entries_ <= kMaxEntries) return key;
  Complain("registry-too-many");
  return nullptr;
}

void RegistryFile::DeleteKey(const QStringList& names) {
  deletes_ = true;
  if (names.isEmpty()) return;
  RegistryKey* parent = &root_;
  for (qsizetype i = 0; i + 1 < names.size(); ++i) {
    const auto found = parent->Subkeys.find(names.at(i).toCaseFolded());
    if (found == parent->Subkeys.end()) return;
    parent = found->second.get();
  }
  parent->Subkeys.erase(names.constLast().toCaseFolded());
}

void RegistryFile::Complain(const char* reason) {
  if (problems_.size() >= kMaxProblems) return;
  problems_.append(Describe("registry-line", QString::number(first_ + 1), Describe(reason)));
}
