// The reader of a glossary file: a small state machine that takes one character at a time and hands every
// finished piece to a writer. The screen's list and the printable document are filled by one reader each.
#pragma once

#include <QString>
#include <optional>

#include "platform/files/TextStream.h"

// Takes the pieces of a glossary in the order in which they are finished. No piece is empty.
class GlossaryWriter {
 public:
  virtual ~GlossaryWriter() = default;
  virtual void WriteGlosLetter(const QString& letter) = 0;  // one character
  virtual void WriteGlosTerm(const QString& term) = 0;
  virtual void WriteGlosDefinition(const QString& definition) = 0;
};

class GlossaryReader {
 public:
  // The writer must outlive the reader.
  GlossaryReader(TextStream stream, GlossaryWriter& writer);

  // Reads at most `characters` more; true when that was the rest. A last letter is written then; a last
  // term or definition is dropped, so a file needs a closing letter.
  bool ReadInGlosInfo(qsizetype characters);

 private:
  enum class GlosMode { None, Letter, Term, Definition };

  void TakeChar(QChar character);
  void PlaceGlosChar(QChar character);
  void WriteLetter();
  void WriteTerm();
  void WriteDefinition();

  TextStream stream_;
  GlossaryWriter& writer_;
  GlosMode mode_ = GlosMode::None;  // what stands before the first marker is dropped
  QString letter_, term_, definition_;
};

// The glossary of a course as it stands on the disk: its own in the folder "Glossary", or else the common
// one beside the program. Nothing when there is neither; a file that can't be read is a RunTimeError.
std::optional<TextStream> OpenGlossary(const QString& courseName);
