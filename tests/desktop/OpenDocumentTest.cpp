// Opening and printing documents: what is handed over, and what is said when it fails.
#include "desktop/OpenDocument.h"

#include <gtest/gtest.h>

#include "support/Messages.h"
#include "support/Opened.h"
#include "support/Print.h"
#include "support/Store.h"

namespace {

class OpenDocumentTest : public ::testing::Test {
 protected:
  static int Open(const QString& file, int showState = kShownNormally) {
    return OpenDocument(file, showState, {}, {}, kVerbOpen);
  }

  Store store;
  Messages messages;
  Opened opened;
};

TEST_F(OpenDocumentTest, SaysWhatTheResultMeans) {
  const QString other = "An error occurred while trying to open or print the selected file.";
  const std::pair<int, QString> rows[] = {
      {0, other},
      {1, other},
      {2, "The repository file could not be located."},
      {3, "Repository path not found.  Repository may not be installed."},
      {5, "Path/file access error"},
      {31, "No application is associated with this file type."},
      {32, other},
  };
  for (const auto& [result, text] : rows) {
    opened.Result = result;
    EXPECT_NE(Open("Repository\\1\\none.txt"), kOpened) << result;
    EXPECT_EQ(messages.Take(), QStringList(text)) << result;
  }
  EXPECT_EQ(messages.Calls().back().Icon, MsgIcon::Exclamation);
  for (const int success : {33, 42, -1}) {
    opened.Result = success;
    EXPECT_EQ(Open("Repository\\1\\none.txt"), kOpened) << success;
  }
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(OpenDocumentTest, BelievesTheDiskMoreThanTheAnswerThatAFileIsMissing) {
  store.Write("Repository/1/there.txt", "x");
  store.Write("../beside.txt", "x");
  opened.Result = ShellResult::kNoFile;
  EXPECT_EQ(Open("Repository\\1\\there.txt"), kOpened);
  EXPECT_EQ(messages.Take(), QStringList());
  EXPECT_NE(Open("..\\beside.txt"), kOpened);
  EXPECT_EQ(messages.Take().size(), 1);
}

TEST_F(OpenDocumentTest, HidesWhatIsOrLiesInAProgramByItsName) {
  Open("Repository\\1\\Setup.Exe");
  Open("Tools.EXE\\a.txt");
  Open("Repository\\1\\exe.txt");
  EXPECT_EQ(opened.Take(), QStringList({"open Repository\\1\\Setup.Exe (0)", "open Tools.EXE\\a.txt (0)",
                                        "open Repository\\1\\exe.txt (5)"}));
}

}  // namespace
