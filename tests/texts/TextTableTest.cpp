#include "texts/TextTable.h"

#include <array>

#include "support/TestProgram.h"
#include "texts/Descriptions.h"

TEST(TextTable, EveryGroupIsWhole) {
  const std::array<int, 3> groups[] = {{101, 144, 43}, {150, 161, 12}, {200, 201, 2}, {250, 255, 6},
                                       {300, 325, 13}, {350, 361, 12}, {375, 380, 6}, {400, 405, 6},
                                       {415, 419, 5},  {500, 543, 44}};
  for (const auto& group : groups) {
    int texts = 0;
    for (int number = group[0]; number <= group[1]; ++number)
      texts += LoadStringResource(number).isEmpty() ? 0 : 1;
    EXPECT_EQ(texts, group[2]) << group[0];
  }
}

TEST(Descriptions, TakeTheirArgumentsAsTheyStand) {
  EXPECT_EQ(Describe("file-missing", "100%2 \"x\""), "The file \"100%2 \"x\"\" was not found.");
  EXPECT_EQ(Describe("file-unreadable", "%2", "why"), "The file \"%2\" could not be read: why");
  const QString longText(5'000'000, u'x'), longPath = u'/' + QString(300, u'a') + QStringLiteral("/Map.txt");
  EXPECT_EQ(Describe("map-line", longPath, longText),
            QStringLiteral("The file \"/%1...%2/Map.txt\" has a page line without \"*\": \"%3...\"")
                .arg(QString(99, u'a'), QString(92, u'a'), QString(200, u'x')));
  EXPECT_EQ(Describe("no-such-key", "a", "b"), "no-such-key a b");
}
