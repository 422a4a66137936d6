// The movies of a page: which player an object gets, where it plays, and when it ends.
#include <QDir>
#include <QScrollBar>

#include "coursescreen/MovieStage.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/forms/Screen.h"
#include "platform/movies/MoviePlayer.h"
#include "platform/movies/PlayerPlugins.h"
#include "support/Program.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

const QString kNoFlash =
    "This page contains a Macromedia Flashmovie.  Please make sure the Flash player is installed on this "
    "machine (https://ruffle.rs).";
const QString kNoShockwave =
    "This page contains a Macromedia Shockwave movie.  Please make sure the Shockwave player is installed on "
    "this machine (http://www.shockwave.example.com).";
constexpr const char* kFlash = "ShockwaveFlash1";
constexpr const char* kOther = "ShockwaveCtl1";

class MoviesTest : public CourseTest {
 protected:
  MoviesTest() { Took(); }
  ~MoviesTest() override { qApp->setProperty("noMovies", QString()); }

  void Install() const {
    store.Write("players/about.txt", "no plugin");
    QFile::copy(TALLOWMERE_PLAYER, store.Path("players/recording.so"));
    store.Write("registry/players.reg",
                "REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\ShockwaveFlash.ShockwaveFlash\\CurVer]\n"
                "@=\"ShockwaveFlash.ShockwaveFlash.6\"\n"
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\SWCtl.SWCtl\\CurVer]\n@=\"swctl.SWCTL.10\"\n"
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\MediaPlayer.MediaPlayer\\CurVer]\n"
                "@=\"MediaPlayer.MediaPlayer\"\n");
  }
  static QString Object(const QString& data) {
    return "{\\object\\objemb\\objw3000\\objh1500{\\*\\objname " + data + "}}";
  }
  void WritePage(const QString& text, const QString& page = "rt0101/0001.txm") const {
    store.Write(page, PageFile(text));
  }
  // Shows the first page anew, with an object of that data text.
  void ShowObject(const QString& data) {
    WritePage("before " + Object(data) + " behind");
    Default<Form1>().InitNewCourse();
    Gui::Settle();
  }
  // What the players were told since the last call.
  static QStringList Took() {
    const QStringList notes = qApp->property("movies").toStringList();
    qApp->setProperty("movies", QStringList());
    return notes;
  }
  static QWidget& ImageFrame() { return *Gui::Find(Default<Form1>(), "ImageFrame"); }
  static MoviePlayer& Player(const char* name) { return *Gui::Find<MoviePlayer>(Default<Form1>(), name); }
  static QString Movie(const QString& file) { return gAppPath + "/rt0101/Movies/" + file; }
};

TEST_F(MoviesTest, TheNameInTheDataTextChoosesThePlayer) {
  Install();
  ReadAs("Ann", "Lee");
  const QString flash = "ShockwaveFlash1 fit 2|ShockwaveFlash1 movie %1|ShockwaveFlash1 stop";
  const QString director = "ShockwaveCtl1 movie %1|ShockwaveCtl1 fit 2|ShockwaveCtl1 back 16777215";
  const QString video = "ShockwaveCtl1 bar 0|ShockwaveCtl1 movie %1";
  const struct {
    QString Data, Name, Told, File;
  } rows[] = {
      {"intro.swf,400", "intro.swf", flash, Movie("intro.swf")},
      {"a.swf.dcr.wmv", "a.swf.dcr.wmv", flash, Movie("a.swf.dcr.wmv")},
      {"clip.wmv,see x.swf", "clip.wmv", flash, Movie("clip.wmv")},
      {"b.wmv.dcr", "b.wmv.dcr", director, Movie("b.wmv.dcr")},
      {"CLIP.wmv,", "CLIP.wmv", video, Movie("clip.wmv")},  // the file's own spelling
      {"..\\\\..\\\\..\\\\out\\\\film.wmv", "..\\..\\..\\out\\film.wmv", video, {}},
      {"intro.SWF", "intro.SWF", {}, {}},
      {"picture.gif", "picture.gif", {}, {}},
  };
  for (const auto& file : {"rt0101/Movies/clip.wmv", "../out/film.wmv"})
    store.Write(store.Path(file), "x");
  for (const auto& row : rows) {
    Default<Form1>().Pages().LoadModuleAtPage(1, "0001.txm");
    Gui::Settle();
    Took();
    ShowObject(row.Data);
    EXPECT_EQ(gMovieName, row.Name);
    EXPECT_EQ(Took().join('|'), row.Told.contains('%') ? row.Told.arg(row.File) : row.Told);
  }
  EXPECT_EQ(messages.Take(), QStringList());
}

// Of these only the last is the player's own fault: its reason is for the log, once.
enum class Missing { InTheRegistry, AmongThePlugins, AtItsMaking };

class MissingPlayerTest : public MoviesTest, public ::testing::WithParamInterface<Missing> {};

TEST_P(MissingPlayerTest, IsToldAndLeavesThePageUsable) {
  static QStringList logged;
  logged.clear();
  const QString reason = "no place for " + store.Path();  // another one in each run of the test
  if (GetParam() != Missing::InTheRegistry) Install();
  if (GetParam() == Missing::AmongThePlugins) QDir(store.Path("players")).removeRecursively();
  if (GetParam() == Missing::AtItsMaking) qApp->setProperty("noMovies", reason);
  ReadAs("Ann", "Lee");
  const auto former = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString& line) { logged += line; });
  for (const auto& [data, told] :
       {std::pair{"a.swf", kNoFlash}, {"a.dcr", kNoShockwave}, {"a.wmv", QString()}, {"b.swf", kNoFlash}}) {
    ShowObject(data);
    EXPECT_EQ(messages.Take().join('|'), told) << data;
    EXPECT_TRUE(PageText().endsWith("behind"));
    Gui::Click(Default<Form1>(), "NextBtn");
    EXPECT_EQ(PageText(), "rt0101 0002.txm");
  }
  qInstallMessageHandler(former);
  EXPECT_EQ(Took(), QStringList());
  if (GetParam() != Missing::AtItsMaking) return;
  QStringList expected;
  for (const char* name : {"ShockwaveFlash.ShockwaveFlash.6", "swctl.SWCTL.10", "MediaPlayer.MediaPlayer"})
    expected += QString("The movie player for \"%1\" can't be made: ").arg(name) + reason;
  EXPECT_EQ(logged, expected);
}

INSTANTIATE_TEST_SUITE_P(Movies, MissingPlayerTest,
                         ::testing::Values(Missing::InTheRegistry, Missing::AmongThePlugins,
                                           Missing::AtItsMaking));

TEST(PlayerMessageTest, AsksForThePlayerWhoseErrorItIs) {
  const QString words = "no Control.dll", shockwave = LoadStringResource(kResNeedsShockwave);
  const struct {
    QString Class, OfCourse, OfMovie;
  } rows[] = {
      {"swctl.SWCTL.8", shockwave, shockwave},
      {"ShockwaveFlash.ShockwaveFlash", words, LoadStringResource(kResNeedsFlash)},
      {"WMPlayer.OCX", words, words},
  };
  for (const auto& row : rows) {
    const PlayerError error(row.Class, words);
    EXPECT_EQ(PlayerMessage(error, PlayersToldOf::Shockwave), row.OfCourse) << row.Class.toStdString();
    EXPECT_EQ(PlayerMessage(error, PlayersToldOf::ShockwaveAndFlash), row.OfMovie) << row.Class.toStdString();
  }
  EXPECT_EQ(PlayerMessage(RunTimeError(words), PlayersToldOf::ShockwaveAndFlash), words);
}

TEST_F(MoviesTest, AFlashMovieShowsOnceItHasToldItsSize) {
  Install();
  ReadAs("Ann", "Lee");
  ShowObject("intro.swf");
  MoviePlayer& movie = Player(kFlash);
  const QSize given = ImageFrame().size();
  Took();
  for (const auto& [command, arguments] : {std::pair{"size", "640"},
                                           {"size", "x"},
                                           {"size", "axb"},
                                           {"size", "0x5"},
                                           {"size", "4294967297x1"},
                                           {"Size", "10x10"},
                                           {"quit", "10x10"},
                                           {"size", ""}}) {
    movie.Command(command, arguments);
    EXPECT_FALSE(movie.isVisible()) << command << arguments;
    EXPECT_EQ(ImageFrame().size(), given) << arguments;
  }
  EXPECT_EQ(Took(), QStringList());
  // The page view bounds it: the picture of a player takes four bytes a pixel.
  const QSize room = PageView().viewport()->size();
  const int side = std::min(room.width(), room.height());
  for (const auto& [arguments, size] : {std::pair{"8192x8192", QSize(side, side)},
                                        {"2147483647x1", QSize(room.width(), 1)},
                                        {"320x240", QSize(320, 240)}}) {
    movie.Command("size", arguments);
    EXPECT_TRUE(movie.isVisible());
    EXPECT_EQ(ImageFrame().size(), size) << arguments;
    EXPECT_EQ(movie.geometry(), QRect({}, size)) << arguments;
    EXPECT_EQ(Took(), QStringList({"ShockwaveFlash1 fit 2", "ShockwaveFlash1 play"}));
  }
  Default<Form1>().resize(Default<Form1>().size() + QSize(0, 40));  // a new layout keeps the movie's size
  EXPECT_EQ(ImageFrame().size(), QSize(320, 240));
}

TEST_F(MoviesTest, EveryWayToAnotherPageEndsTheMovie) {
  Install();
  const QString link = "{\\field{\\*\\fldinst HYPERLINK \"rt0102\\\\0001.txm_\"}{\\fldrslt goods}} ";
  WritePage(link + Object("clip.wmv"), "rt0101/0002.txm");
  Form1& screen = ReadAs("Ann", "Lee");
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"next", [&] { Gui::Click(screen, "NextBtn"); }},
      {"link", [] { ClickOnPage("goods"); }},
      {"no page", [&] { screen.Pages().LoadModuleAtPage(0, {}); }},
      {"another course", [&] { screen.InitNewCourse(); }},
      {"end", [&] { screen.Unload(); }},
  };
  for (const auto& [way, leave] : rows) {
    screen.InitNewCourse();
    Gui::Click(screen, "NextBtn");
    Gui::Settle();
    Took();
    ASSERT_TRUE(Player(kOther).isVisible()) << way;
    leave();
    Gui::Settle();
    EXPECT_EQ(Took(), QStringList({"ShockwaveCtl1 stop", "ShockwaveCtl1 gone"})) << way;
  }
  messages.Take();
}

// The frame of the first of two movies gives way to that of the second, which scrolls with its object. A file
// that a link shows leaves the movie where it is.
TEST_F(MoviesTest, TheLastMovieOfAPagePlaysWhereItsObjectStands) {
  Install();
  store.Write("handbook.txm", "{\\rtf1 the handbook}");
  const QString lines = QString("line\\par ").repeated(30);
  WritePage("{\\field{\\*\\fldinst HYPERLINK \"handbook.txm\" \\\\l \"x\"}{\\fldrslt help}}\\par " + lines +
            Object("a.dcr") + "\\par " + Object("b.wmv") + "\\par " + lines);
  Form1& screen = ReadAs("Ann", "Lee");
  Took();
  screen.InitNewCourse();
  Gui::Settle();
  EXPECT_EQ(PageView().viewport()->findChildren<QWidget*>("ImageFrame").size(), 1);
  EXPECT_EQ(
      Took().filter(QRegularExpression("stop|gone|movie")).mid(1),
      QStringList({"ShockwaveCtl1 movie " + Movie("a.dcr"), "ShockwaveCtl1 stop",
                   "ShockwaveCtl1 movie " + Movie("b.wmv"), "ShockwaveCtl1 gone", "ShockwaveCtl1 gone"}));
  const int id = PageView().Objects().value(1).Id;
  for (const int scrolled : {0, 40, 200}) {
    PageView().verticalScrollBar()->setValue(scrolled);
    EXPECT_EQ(ImageFrame().geometry(), PageView().ObjectRect(id)) << scrolled;
    EXPECT_EQ(Player(kOther).geometry(), ImageFrame().rect()) << scrolled;
  }
  PageView().verticalScrollBar()->setValue(0);
  const QRect place = ImageFrame().geometry();
  PageView().FollowLink(0);
  Gui::Settle();
  EXPECT_EQ(PageText(), "the handbook");
  EXPECT_EQ(Took(), QStringList());
  EXPECT_EQ(ImageFrame().geometry(), place);
  Gui::Click(screen, "NextBtn");
  Gui::Settle();
  EXPECT_EQ(Took(), QStringList({"ShockwaveCtl1 stop", "ShockwaveCtl1 gone"}));
  EXPECT_FALSE(ImageFrame().isVisible());
}

TEST_F(MoviesTest, WhoTurnsToAMovieClosesTheMenusAndMakesItCurrent) {
  Install();
  Form1& screen = ReadAs("Ann", "Lee");
  ShowObject("clip.wmv");
  const int id = PageView().Objects().value(0).Id;
  // The data text makes its object current only where the page is not shown at its design scale.
  EXPECT_EQ(PageView().CurrentObject(), Screen::TwipsPerPixelX() == 15 ? 0 : id);
  EXPECT_FALSE(gActiveObjectSet);  // a fresh page has none
  const auto open = [&screen] {
    Gui::Click(screen, "toolBar_But");
    EXPECT_TRUE(Gui::Find(screen, "toolBar_Slice(0)")->isVisible());
  };
  open();
  Player(kOther).Entered();
  EXPECT_FALSE(Gui::Find(screen, "toolBar_Slice(0)")->isVisible());
  open();
  PageView().SetCurrentObject(0);
  Gui::Click(screen, kOther);
  EXPECT_FALSE(Gui::Find(screen, "toolBar_Slice(0)")->isVisible());
  EXPECT_EQ(PageView().CurrentObject(), id);
  EXPECT_TRUE(gActiveObjectSet);
  EXPECT_EQ(gActiveObjectId, id);
  QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, {},
                    PageView().viewport()->mapTo(&screen, QPoint(2, PageView().viewport()->height() - 2)));
  EXPECT_EQ(PageView().CurrentObject(), 0);
}

}  // namespace
