#include "frame/Settings.h"

#include "frame/ProgramState.h"
#include "platform/TestProgram.h"
#include "platform/registry/Registry.h"

namespace {

// An installation's registry file with lines for the catalogue's root key.
void WriteRegistry(const TestProgram& program, const QByteArray& values) {
  program.Write(
      "registry/a.reg",
      "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]\r\n" + values + "\r\n");
}

}  // namespace

TEST(Settings, TheDataRootIsBesideTheProgramUnlessTold) {
  const struct {
    QByteArray Values;
    QString Root;  // %1 is the program folder
  } cases[] = {
      {"", "%1/data\\"},
      {"\"DataRoot\"=\"/var/lib/store/\"", "/var/lib/store\\"},
      {"\"dataroot\"=\"shared\\\\learners\"", "%1/shared/learners\\"},
      {"\"DataRoot\"=\"/\"", "\\"},
      {"\"DataRoot\"=dword:1", "%1/data\\"},
  };
  for (const auto& c : cases) {
    const TestProgram program;
    WriteRegistry(program, c.Values);
    EXPECT_EQ(LoadInstallation({"registry"}), QStringList());
    SetProgramPaths();
    EXPECT_EQ(gAppPath, program.Folder());
    EXPECT_EQ(gDriveRoot, QString(c.Root).replace("%1", program.Folder())) << c.Values.toStdString();
  }
}

TEST(Settings, TheCodePageHoldsForTheRegistryItself) {
  const TestProgram program;
  WriteRegistry(program, "\"CodePage\"=\"windows-1250\"\r\n\"Name\"=\"\xA3\"");
  EXPECT_EQ(LoadInstallation({"registry"}), QStringList());
  EXPECT_EQ(CodePageName(), "windows-1250");
  const RegistryKey* root = LocalMachine().OpenKey(kCatalogueRoot);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(Registry::QueryValue(*root, "Name")->Text, u"Ł"_qs);
}

TEST(Settings, AnUnknownCodePageIsToldAndTheDefaultStays) {
  const TestProgram program;
  WriteRegistry(program, "\"CodePage\"=\"utf-17\"");
  EXPECT_EQ(LoadInstallation({"registry"}),
            QStringList("The code page \"utf-17\" of the installation is not known."));
  EXPECT_EQ(CodePageName(), kDefaultCodePage);
}
