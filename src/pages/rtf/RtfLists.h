// The lists of an RTF page, those of its list table and the older ones that are told in front of each of
// their paragraphs: what their words say, how far they have counted, and the numbers they put in front.
#pragma once

#include <QString>
#include <array>
#include <span>
#include <unordered_map>
#include <vector>

#include "pages/rtf/RtfListNumbers.h"
#include "pages/rtf/RtfModel.h"
#include "pages/rtf/RtfWords.h"

class RtfLists {
 public:
  static std::span<const RtfWord> Words();

  // Text of the groups that describe a list.
  void AddTemplate(const QString& text);
  void AddBefore(const QString& text);
  void AddAfter(const QString& text);

  // The ends of such groups.
  void EndList();
  void EndLevel(int codePage);  // of the level's font
  void EndOverride();
  void EndOldList(RtfParaProps& props);  // makes the paragraph one of the list

  // \ls where a use of a list is described: its number.
  void SetOverrideNumber(int number) { overrideNumber_ = number; }

  // Whether the paragraph is to begin with a bullet or number that has not come.
  static bool IsNumberDue(RtfParser& parser);
  // Puts it in front where it is due.
  void AddDueNumber(RtfParser& parser);
  // The same for an empty paragraph. Pages that bring their numbers bring them for those too.
  void AddDueNumberToEmpty(RtfParser& parser);

  // The properties of a paragraph that ends. Where the number ends at its place, a tab is put in front of
  // the text that leads there.
  RtfParaProps PropsAtEnd(RtfParser& parser) const;

 private:
  static constexpr int kLevels = 9;

  enum class Behind { Tab = 0, Blank = 1, Nothing = 2 };    // what stands behind the number
  enum class AtPlace { Begins = 0, Middle = 1, Ends = 2 };  // the number, at the first line's indent

  struct Level {
    RtfNumberKind Kind = RtfNumberKind::Decimal;
    int StartAt = 1;
    Behind Follow = Behind::Tab;
    AtPlace Justify = AtPlace::Begins;
    bool IsLegal = false;  // shows the numbers of all levels in decimal
    QString Template;      // characters 0 to 8 stand for the number of that level

    // For the word for a part of it.
    static void SetKind(Level& level, RtfArgument argument);
    static void SetStart(Level& level, RtfArgument argument);
    static void SetFollow(Level& level, RtfArgument argument);
    static void SetJustify(Level& level, RtfArgument argument);
    static void SetLegal(Level& level, RtfArgument argument);
  };
  struct List {
    std::vector<Level> Levels;            // at most kLevels
    std::array<int, kLevels> Counters{};  // how many paragraphs of each level were numbered so far
  };
  // A use of a list that may begin its levels at numbers of its own.
  struct Override {
    static constexpr int kAsInList = -1;

    Override() { StartAt.fill(kAsInList); }

    int List = 0;
    std::array<int, kLevels> StartAt;  // kAsInList again once the level has begun there
  };
  // A list of the older kind.
  struct OldList {
    RtfNumberKind Kind = RtfNumberKind::Bullet;
    int StartAt = 1;
    QString Before;
    QString After;

    bool operator==(const OldList&) const = default;
  };

  static void BeginList(RtfParser& parser, RtfArgument argument);
  static void BeginLevel(RtfParser& parser, RtfArgument argument);
  static void BeginOverride(RtfParser& parser, RtfArgument argument);
  static void BeginLevelOverride(RtfParser& parser, RtfArgument argument);
  static void SetStart(RtfParser& parser, RtfArgument argument);
  static void BeginOldList(RtfParser& parser, RtfArgument argument);
  static void BeginText(RtfParser& parser, RtfArgument argument);
  template <void (*Set)(Level&, RtfArgument)>
  static void SetLevel(RtfParser& parser, RtfArgument argument);
  template <RtfNumberKind Kind>
  static void SetOldKind(RtfParser& parser, RtfArgument argument);

  const Level* LevelOf(int list, int level) const;
  QString NextText(int list, int level);
  QString NextOldText(int list);
  static int NumberOf(const List& list, size_t level);
  static QString TextOfLevel(const List& list, size_t level);

  std::unordered_map<int, List> lists_;          // by list id
  std::unordered_map<int, Override> overrides_;  // by number of \ls
  std::vector<OldList> oldLists_;
  int countedOldList_ =
      0;  // the older list that the last numbered paragraph belongs to, and its number there
  int oldCount_ = 0;
  bool bringsText_ = false;  // the page tells its bullets and numbers

  // What is being told.
  List list_;
  int listId_ = 0;
  Override override_;
  int overrideNumber_ = 0;
  int overrideLevel_ = -1;
  bool hasOverrideStart_ = false;
  OldList oldList_;
};
