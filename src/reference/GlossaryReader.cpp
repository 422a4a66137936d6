#include "reference/GlossaryReader.h"

#include <utility>

#include "frame/ProgramState.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "reference/CourseFiles.h"

namespace {

constexpr QChar kLetterMark = u'^', kTermMark = u'%', kDefinitionMark = u'~';

// Opens a glossary, if it is there. A real path that is empty leads out of where it belongs: it is not.
std::optional<TextStream> Open_Glos_File(const QString& realPath) {
  if (realPath.isEmpty() || !FileExists(realPath)) return std::nullopt;
  return TextStream(ReadProgramFile(realPath, kTextFileLimit), realPath);
}

}  // namespace

GlossaryReader::GlossaryReader(TextStream stream, GlossaryWriter& writer)
    : stream_(std::move(stream)), writer_(writer) {}

bool GlossaryReader::ReadInGlosInfo(qsizetype characters) {
  for (; characters > 0 && !stream_.AtEndOfStream(); --characters)
    TakeChar(stream_.ReadChar());
  if (!stream_.AtEndOfStream()) return false;
  WriteLetter();
  return true;
}

void GlossaryReader::TakeChar(QChar character) {
  if (character == kLetterMark) {
    mode_ = GlosMode::Letter;
  } else if (character == kTermMark) {
    mode_ = GlosMode::Term;
  } else if (character == kDefinitionMark) {
    mode_ = GlosMode::Definition;
  } else if (character != u'\r' && character != u'\n') {
    PlaceGlosChar(character);
  }
}

// A piece is finished when the first character of a later one comes, not at its marker. The order counts:
// the definition goes before the letter behind it, unless two characters stand behind that "^".
void GlossaryReader::PlaceGlosChar(QChar character) {
  switch (mode_) {
    case GlosMode::None: break;
    case GlosMode::Letter:
      WriteLetter();  // an index entry holds one character
      WriteDefinition();
      letter_.append(character);
      break;
    case GlosMode::Term:
      WriteDefinition();
      WriteLetter();
      term_.append(character);
      break;
    case GlosMode::Definition:
      WriteTerm();
      definition_.append(character);
      break;
  }
}

void GlossaryReader::WriteLetter() {
  if (!letter_.isEmpty()) writer_.WriteGlosLetter(std::exchange(letter_, {}));
}

void GlossaryReader::WriteTerm() {
  if (!term_.isEmpty()) writer_.WriteGlosTerm(std::exchange(term_, {}));
}

void GlossaryReader::WriteDefinition() {
  if (!definition_.isEmpty()) writer_.WriteGlosDefinition(std::exchange(definition_, {}));
}

std::optional<TextStream> OpenGlossary(const QString& courseName) {
  const QString ofCourse = QStringLiteral("Glossary %1.txt").arg(courseName);
  if (auto stream = Open_Glos_File(CourseFile(kGlossaryFolder, ofCourse))) return stream;
  return Open_Glos_File(ContainedPath(gAppPath + QStringLiteral("\\Glossary.txt")));
}
