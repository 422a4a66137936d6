#include "platform/registry/Registry.h"

#include <QStringEncoder>

#include "support/TestProgram.h"

namespace {

const QByteArray kVersion5 = "Windows Registry Editor Version 5.00\r\n\r\n";
const QByteArray kKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\K]\r\n";

// The whole tree as text: one line a key or value.
QStringList Dump(const RegistryKey& key, const QString& path = {}) {
  QStringList lines;
  for (const auto& [folded, value] : key.Values) {
    const QString data = value.Bytes.isEmpty() ? value.Text : QString::fromLatin1(value.Bytes.toHex(' '));
    lines.append(path + "|" + folded + "|" + QString::number(value.Type) + "|" + data);
  }
  for (const QString& name : Registry::EnumSubkeys(key)) {
    lines.append(path + "\\" + name);
    lines += Dump(*key.Subkeys.at(name.toCaseFolded()), path + "\\" + name);
  }
  return lines;
}

QStringList Values(const Registry& registry) {
  const RegistryKey* key = registry.OpenKey("software\\k");
  return key != nullptr ? Dump(*key) : QStringList("(no key)");
}

QByteArray Utf16(const QByteArray& text) {
  QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
  return encoder.encode(QString::fromUtf8(text));
}

}  // namespace

TEST(Registry, ReadsEveryKindOfValue) {
  const std::pair<QByteArray, QStringList> cases[] = {
      {"@=\"text\"", {"||1|text"}},
      {"  \"Name\" = \"x\" ; why", {"|name|1|x"}},
      {"\"a\"=\"C:\\\\d\\\\\\\"q\\\"\"", {"|a|1|C:\\d\\\"q\""}},
      {"\"a\"=\"C:\\dir\"", {"|a|1|C:\\dir"}},
      {"\"a=\\\"b\"=\"x=y\"", {"|a=\"b|1|x=y"}},
      {"\"a\"=\"\xC5\x99\"", {u"|a|1|ř"_qs}},
      {"\"a\"=\"one\r\ntwo\"", {"|a|1|one\r\ntwo"}},
      {"\"a\"=dword:0000002A", {"|a|4|2a 00 00 00"}},
      {"\"a\"=hex:01, fF,\\\r\n  0a", {"|a|3|01 ff 0a"}},
      {"\"a\"=hex:", {"|a|3|"}},
      {"\"a\"=hex(2):25,00,50,00,00,00", {QStringLiteral("|a|2|%P") + QChar::Null}},
      {"\"a\"=hex(1):41,00", {"|a|1|A"}},
      {"\"a\"=hex(b):01,02", {"|a|11|01 02"}},
      {"\"a\"=\"1\"\r\n\"A\"=\"2\"", {"|a|1|2"}},
      {"\"a\"=\"1\"\r\n\"A\"=-", {}},
      {"; \"a\"=\"1\"", {}},
      {"\"a\"=\"1\"\r\n\x1A", {"|a|1|1"}},
  };
  for (const auto& [lines, values] : cases) {
    // With the line ends of its own system and with those of this one, and in each encoding.
    const QByteArray file = kVersion5 + kKey + lines;
    for (const QByteArray& bytes :
         {file, QByteArray("\xEF\xBB\xBF" + file), Utf16(file), QByteArray(file).replace("\r\n", "\n")}) {
      Registry registry;
      EXPECT_EQ(registry.LoadText(bytes), QStringList());
      EXPECT_EQ(Values(registry).join(' ').remove('\r'), values.join(' ').remove('\r'))
          << lines.toStdString();
    }
  }
}

TEST(Registry, TheOlderKindIsInTheCodePage) {
  const TestProgram program;
  ASSERT_TRUE(SetCodePage("windows-1250"));
  Registry registry;
  EXPECT_EQ(registry.LoadText("REGEDIT4\n\n" + kKey + "\"a\"=\"\xA3\"\n\"b\"=hex(2):25,a3\n"), QStringList());
  EXPECT_EQ(Values(registry), QStringList({u"|a|1|Ł"_qs, u"|b|2|%Ł"_qs}));
}

TEST(Registry, KeysCompareWithoutCaseAndKeepTheirSpelling) {
  Registry registry;
  registry.LoadText(
      kVersion5 +
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\beta]\r\n[HKEY_LOCAL_MACHINE\\Software\\Alpha\\Modules]\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\BETA]\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Gamma]\r\n"
      "[HKEY_CLASSES_ROOT\\x.1]\r\n@=\"X\"\r\n[HKEY_CURRENT_USER\\Gone]\r\n\"a\"=\"b\"\r\n");
  const RegistryKey* software = registry.OpenKey("SOFTWARE");
  ASSERT_NE(software, nullptr);
  EXPECT_EQ(Registry::EnumSubkeys(*software), QStringList({"Alpha", "beta", "Classes", "Gamma"}));
  EXPECT_NE(registry.OpenKey("software\\ALPHA\\modules"), nullptr);
  EXPECT_NE(registry.OpenKey("SOFTWARE\\Classes\\X.1"), nullptr);
  EXPECT_EQ(registry.OpenKey("Gone"), nullptr);
}

TEST(Registry, ALaterFileAddsOverridesAndDeletes) {
  Registry registry;
  registry.LoadText(kVersion5 + kKey +
                    "\"a\"=\"1\"\r\n\"b\"=\"1\"\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\K\\Sub\\Deep]\r\n");
  registry.LoadText(
      kVersion5 + kKey +
      "\"B\"=\"2\"\r\n\"c\"=\"2\"\r\n[-HKEY_LOCAL_MACHINE\\software\\k\\SUB]\r\n\"lost\"=\"x\"\r\n"
      "[-HKEY_LOCAL_MACHINE\\software\\never\\was]\r\n");
  EXPECT_EQ(Values(registry), QStringList({"|a|1|1", "|b|1|2", "|c|1|2"}));
}

TEST(Registry, WhatIsMalformedIsNamedAndTheRestCounts) {
  const QByteArray good = kKey + "\"a\"=\"good\"\r\n";
  const QByteArray deep = "[HKEY_LOCAL_MACHINE" + QByteArray("\\d").repeated(65) + "]\r\n";
  const QByteArray longName = "[HKEY_LOCAL_MACHINE\\" + QByteArray(256, 'n') + "]\r\n";
  const std::pair<QByteArray, QStringList> cases[] = {
      {"something else\r\n" + good, {"line 1: it does not begin as a registry file"}},
      {good, {"line 1: it does not begin as a registry file"}},
      {kVersion5 + "\"b\"=\"x\"\r\n" + good, {"line 3: this value stands behind no key"}},
      {kVersion5 + "[HKEY_LOCAL_MACHINE\\A\r\n\"b\"=\"x\"\r\n" + good, {"line 3: this is no key"}},
      {kVersion5 + "[HKEY_LOCAL_MACHINE\\A\\\\B]\r\n" + good, {"line 3: this is no key"}},
      {kVersion5 + deep + "\"b\"=\"x\"\r\n" + good, {"line 3: the key lies too deep"}},
      {kVersion5 + longName + good, {"line 3: the name is too long"}},
      {kVersion5 + good + "\"b\"\r\n\"c\r\n", {"line 5: this is no value", "line 6: this is no value"}},
      {kVersion5 + good + "\"b\"=\"open\r\n", {"line 5: the text has no end"}},
      {kVersion5 + good + "\"b\"=hex:01,\\\r\n", {}},
  };
  const auto expect = [](const QByteArray& file, const QStringList& problems) {
    Registry registry;
    EXPECT_EQ(registry.LoadText(file), problems) << file.left(300).toStdString();
    EXPECT_TRUE(Values(registry).contains("|a|1|good")) << file.left(300).toStdString();
  };
  for (const auto& [file, problems] : cases)
    expect(file, problems);
  for (const char* value :
       {"\"x\" y", "dword:xyz", "dword:123456789", "hex:0g", "hex:123", "hex(:01", "", "rubbish"})
    expect(kVersion5 + good + "\"b\"=" + value + "\r\n", {"line 5: this is no value"});
}

TEST(Registry, TheInstallationsFilesAreReadInTheOrderOfFoldersAndNames) {
  const TestProgram program;
  const auto file = [](const char* value) { return kVersion5 + kKey + value + "\r\n"; };
  program.Write("registry/b.REG", file("\"a\"=\"2\""));
  program.Write("registry/a.reg", file("\"a\"=\"1\"\r\n\"b\"=\"1\""));
  program.Write("registry/notes.txt", file("\"t\"=\"x\""));
  program.Write("etc/0.reg", file("\"c\"=\"3\""));
  program.Write("etc/bad.reg", file("\"a\"=\"4\"\r\nx\r\nx\r\nx\r\nx\r\nx"));
  program.MakeDir("etc/folder.reg");
  const QStringList problems = LoadInstalledRegistry({"registry", "nowhere", program.Path("etc")});
  EXPECT_EQ(Values(LocalMachine()), QStringList({"|a|1|4", "|b|1|1", "|c|1|3"}));
  EXPECT_EQ(problems, QStringList("The registry file \"" + program.Path("etc/bad.reg") +
                                  "\" is damaged: line 5: this is no value; line 6: this is no "
                                  "value; line 7: this is no value; and 2 more places"));
  EXPECT_EQ(LoadInstalledRegistry({}), QStringList());
  EXPECT_EQ(LocalMachine().OpenKey("SOFTWARE"), nullptr);
}
