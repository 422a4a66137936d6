// The glossary in print: puts letters, terms and definitions into the document.
#pragma once

#include "reference/GlossaryReader.h"

class PrintDocument;

class PrintableGlossary final : public GlossaryWriter {
 public:
  explicit PrintableGlossary(PrintDocument& document) : document_(document) {}

  void WriteGlosLetter(const QString& letter) override;
  void WriteGlosTerm(const QString& term) override;
  void WriteGlosDefinition(const QString& definition) override;

 private:
  PrintDocument& document_;
};
