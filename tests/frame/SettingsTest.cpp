#include "frame/Settings.h"

#include "frame/ProgramState.h"
#include "frame/Rounding.h"
#include "platform/registry/Registry.h"
#include "support/TestProgram.h"

namespace {

// An installation's registry file with lines for the catalogue's root key.
void WriteRegistry(const TestProgram& program, const QByteArray& values) {
  program.Write(
      "registry/a.reg",
      "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]\r\n" + values + "\r\n");
}

}  // namespace

TEST(Settings, TheCodePageHoldsForTheRegistryItself) {
  const TestProgram program;
  WriteRegistry(program, "\"CodePage\"=\"windows-1250\"\r\n\"Name\"=\"\xA3\"");
  EXPECT_EQ(LoadInstallation({"registry"}), QStringList());
  EXPECT_EQ(CodePageName(), "windows-1250");
  const RegistryKey* root = LocalMachine().OpenKey(kCatalogueRoot);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(Registry::QueryValue(*root, "Name")->Text, u"Ł"_qs);
}

TEST(Settings, TheDataMayLieInTheRootOfTheDisk) {
  const TestProgram program;
  WriteRegistry(program, "\"DataRoot\"=\"/\"");
  LoadInstallation({"registry"});
  SetProgramPaths();
  EXPECT_EQ(gDriveRoot, "\\");
}

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
  const std::pair<double, int> cases[] = {{12.5, 12}, {37.5, 38}, {2.4999, 2}, {2.5001, 3},
                                          {-0.5, 0},  {-1.5, -2}, {-2.4, -2},  {2.0 / 3 * 100, 67}};
  for (const auto& [value, rounded] : cases)
    EXPECT_EQ(RoundHalfToEven(value), rounded) << value;
}
