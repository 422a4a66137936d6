// Rich text pages of three sizes: read, and laid out against a document that gets the same content put in
// directly.
#include <benchmark/benchmark.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <ctime>
#include <iterator>
#include <vector>

#include "Times.h"
#include "pages/rtf/RtfReader.h"

namespace {

constexpr int kSmall = 10'000, kMiddle = 1'000'000, kLarge = 20'000'000;  // bytes
constexpr int kSample = 60'000;                                           // bytes that surely hold a table
constexpr double kBytesPerMs = 30'000;                                    // the reader's least
constexpr double kMostRatio = 1.25;  // of reading and layout, to direct insertion and layout
constexpr double kPageWidth = 998;   // pixels
constexpr int kRuns = 4, kRows = 4, kColumns = 3, kTableEvery = 25;
constexpr int kCellTwips = 2000;
const char* const kWords[] = {"counter", "evening", "delivery", "customer", "returns", "sheet", "folder"};

// The formats that the reader gives to the pieces of a page.
struct Formats {
  explicit Formats(const QTextDocument& document)
      : Frame(document.rootFrame()->frameFormat()), Font(document.defaultFont()) {
    Block = document.begin().blockFormat();
    int run = 0;
    for (auto part = document.begin().begin(); !part.atEnd() && run < kRuns; ++part)
      Runs[run++] = part.fragment().charFormat();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
      QTextTable* const table = QTextCursor(block).currentTable();
      if (table == nullptr) continue;
      Table = table->format();
      Cell = table->cellAt(0, 0).format();
      CellBlock = block.blockFormat();
      CellText = block.begin().fragment().charFormat();
      return;
    }
  }

  QTextBlockFormat Block, CellBlock;
  QTextCharFormat Runs[kRuns], Cell, CellText;
  QTextTableFormat Table;
  QTextFrameFormat Frame;
  QFont Font;
};

// What a word processor saves: paragraphs of four differently looking runs, and now and then a table.
class Content {
 public:
  explicit Content(qsizetype size) {
    rtf_ =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}"
        "{\\colortbl;\\red255\\green0\\blue0;}{\\stylesheet{\\s0\\fs22 Normal;}}\r\n";
    for (int number = 0; rtf_.size() < size; ++number) {
      if (number % kTableEvery == kTableEvery - 1) {
        AddTable(number);
      } else {
        AddParagraph(number);
      }
    }
    rtf_ += '}';
  }

  const QByteArray& Rtf() const { return rtf_; }

  // The same put into a document by hand.
  void Insert(QTextDocument& document, const Formats& formats) const {
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(0);
    document.setDefaultFont(formats.Font);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    bool isFresh = true;
    for (const Piece& piece : pieces_) {
      if (piece.Texts.size() == kRuns) {
        InsertParagraph(cursor, piece, formats, isFresh);
        isFresh = false;
      } else {
        InsertTable(cursor, piece, formats);
        isFresh = true;
      }
    }
    cursor.endEditBlock();
    document.rootFrame()->setFrameFormat(formats.Frame);
  }

 private:
  struct Piece {
    QStringList Texts;  // of the runs, or of the cells row by row
  };
  static QString Sentence(int number, int words) {
    QString text;
    for (int i = 0; i < words; ++i)
      text += QLatin1String(kWords[(number * 5 + i * 3 + number / 7) % std::ssize(kWords)]) + u' ';
    return text;
  }

  void AddParagraph(int number) {
    const char* const looks[kRuns] = {"", "\\b", "\\i", "\\cf1"};
    Piece piece;
    rtf_ +=
        "\\pard\\plain \\ltrpar\\s0\\ql \\li0\\ri0\\sa160\\sl259\\slmult1\\widctlpar\\wrapdefault"
        "\\rtlch\\fcs1 \\af0\\afs22 \\ltrch\\fcs0 \\f0\\fs22\\lang1033 ";
    for (int run = 0; run < kRuns; ++run) {
      const QString sentence = Sentence(number + run, 14);
      rtf_ += QByteArray("{\\rtlch\\fcs1 \\af0 \\ltrch\\fcs0 ") + looks[run] + "\\insrsid" +
              QByteArray::number(number) + ' ' + sentence.toLatin1() + "caf\\'e9 \\u8212\\'97 }";
      piece.Texts.append(sentence + QStringLiteral("caf\u00E9 \u2014 "));
    }
    rtf_ += "\\par\r\n";
    pieces_.push_back(piece);
  }

  void AddTable(int number) {
    Piece piece;
    for (int row = 0; row < kRows; ++row) {
      rtf_ += "\\trowd\\trgaph108";
      for (int column = 1; column <= kColumns; ++column)
        rtf_ += "\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx" + QByteArray::number(column * kCellTwips);
      rtf_ += "\\pard\\plain\\intbl\\fs22 ";
      for (int column = 0; column < kColumns; ++column) {
        const QString text = Sentence(number + row + column, 3);
        rtf_ += text.toLatin1() + "\\cell ";
        piece.Texts.append(text);
      }
      rtf_ += "\\row\r\n";
    }
    pieces_.push_back(piece);
  }

  static void InsertParagraph(QTextCursor& cursor, const Piece& piece, const Formats& formats, bool isFresh) {
    if (isFresh) {
      cursor.setBlockFormat(formats.Block);
    } else {
      cursor.insertBlock(formats.Block, formats.Runs[0]);
    }
    for (int run = 0; run < kRuns; ++run)
      cursor.insertText(piece.Texts[run], formats.Runs[run]);
  }

  static void InsertTable(QTextCursor& cursor, const Piece& piece, const Formats& formats) {
    QTextTable* const table = cursor.insertTable(kRows, kColumns, formats.Table);
    for (int i = 0; i < kRows * kColumns; ++i) {
      QTextTableCell cell = table->cellAt(i / kColumns, i % kColumns);
      cell.setFormat(formats.Cell);
      QTextCursor at = cell.firstCursorPosition();
      at.setBlockFormat(formats.CellBlock);
      at.insertText(piece.Texts[i], formats.CellText);
    }
    cursor.setPosition(table->lastPosition() + 1);
  }

  QByteArray rtf_;
  std::vector<Piece> pieces_;
};

void LayOut(QTextDocument& document) {
  document.setTextWidth(kPageWidth);
  document.size();
}

void RichTextReader(benchmark::State& state) {
  const Content content(state.range(0));
  Times times;
  for (auto _ : state) {
    RichPage page;
    times.Take(state, [&] { page = ReadRtf(content.Rtf(), {}, QStringLiteral("page")); });
    if (page.Document->isEmpty()) state.SkipWithError("nothing was read");
  }
  times.ReportMedianAim(state, static_cast<double>(content.Rtf().size()) / kBytesPerMs);
}

// Processor time, which no other program on the machine lengthens, milliseconds.
template <typename Work>
double Spent(Work&& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

// What reading costs beyond what the document takes for itself, layout included.
void RichTextAgainstDocument(benchmark::State& state) {
  const Content content(state.range(0));
  const Formats formats(*ReadRtf(Content(kSample).Rtf(), {}, QStringLiteral("sample")).Document);
  Times read, direct;
  for (auto _ : state) {
    RichPage page;
    read.Add(Spent([&] {
      page = ReadRtf(content.Rtf(), {}, QStringLiteral("page"));
      LayOut(*page.Document);
    }));
    QTextDocument document;
    direct.Add(Spent([&] {
      content.Insert(document, formats);
      LayOut(document);
    }));
    if (page.Document->toPlainText() != document.toPlainText() || page.Document->size() != document.size())
      state.SkipWithError("the two documents differ");
  }
  read.Report(state, "read_");
  direct.Report(state, "direct_");
  state.counters["ratio"] = read.Percentile(0.5) / direct.Percentile(0.5);
  state.counters["ratio_aim"] = kMostRatio;
}

// The usual converter of such pages, start of its process included, for comparison.
void RichTextByUnrtf(benchmark::State& state) {
  const Content content(state.range(0));
  PutTemporaryFoldersIn(kTmpfs);
  const QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("page.rtf"));
  QFile file(name);
  if (!file.open(QIODevice::WriteOnly) || file.write(content.Rtf()) < 0) qFatal("no page for unrtf");
  file.close();
  Times times;
  for (auto _ : state) {
    times.Take(state, [&] {
      QProcess unrtf;
      unrtf.setStandardOutputFile(QProcess::nullDevice());
      unrtf.start(QStringLiteral("unrtf"), {QStringLiteral("--html"), QStringLiteral("--nopict"), name});
      if (!unrtf.waitForFinished(-1)) state.SkipWithError("no unrtf");
    });
  }
  times.Report(state);
}

}  // namespace

BENCHMARK(RichTextReader)->Arg(kSmall)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextReader)->Arg(kMiddle)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextReader)->Arg(kLarge)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextAgainstDocument)->Arg(kSmall)->Iterations(50)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextAgainstDocument)->Arg(kMiddle)->Iterations(7)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextAgainstDocument)->Arg(kLarge)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextByUnrtf)->Arg(kSmall)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(RichTextByUnrtf)->Arg(kMiddle)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);
