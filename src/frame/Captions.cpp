#include "frame/Captions.h"

#include "texts/TextTable.h"

Captions::Captions(QWidget* container, std::span<const CaptionRow> rows) : rows_(rows) {
  for (const CaptionRow& row : rows_) {
    auto* label = new Label(container,
                            row.Index < 0 ? QString::fromLatin1(row.Name) : ElementName(row.Name, row.Index));
    label->Move(row.Where);
    label->SetFont(row.Points, row.Bold);
    label->SetForeColor(row.Colour);
    labels_.push_back(label);
  }
}

void Captions::Fill() {
  for (size_t i = 0; i < rows_.size(); ++i)
    labels_[i]->SetCaption(LoadStringResource(rows_[i].String));
}

QString ElementName(const char* name, int index) {
  return QStringLiteral("%1(%2)").arg(QString::fromLatin1(name)).arg(index);
}
