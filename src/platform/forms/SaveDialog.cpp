#include "platform/forms/SaveDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {

std::function<QString(const SaveDialogCall&)>& SaveAnswerer() {
  static std::function<QString(const SaveDialogCall&)> answerer;
  return answerer;
}

// Where the dialog opens: where the last file of this run was saved, at first among the documents.
QString& Folder() {
  static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (!QFileInfo(folder).isDir()) folder = QDir::homePath();
  return folder;
}

QString Show(const SaveDialogCall& call) {
  QWidget* owner = QApplication::activeWindow();
  QFileDialog dialog(owner != nullptr ? owner : FormLife::Active(), call.Title, Folder());
  dialog.setObjectName(QStringLiteral("SaveDialog"));
  // A dialog of the desktop's own might ask about overwriting all the same.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(call.DefaultExtension);
  dialog.selectFile(call.FileName);
  // There is one type, that of every file, and the buttons have words.
  for (const char* name : {"fileTypeLabel", "fileTypeCombo"}) {
    if (auto* part = dialog.findChild<QWidget*>(QLatin1String(name))) part->hide();
  }
  for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
    if (!button->text().isEmpty()) button->setIcon({});
  }
  const HourglassPause pause;
  if (dialog.exec() != QDialog::Accepted) return {};
  const QString chosen = dialog.selectedFiles().value(0);
  if (!chosen.isEmpty()) Folder() = QFileInfo(chosen).path();
  return chosen;
}

}  // namespace

QString AskWhereToSave(const SaveDialogCall& call) {
  return SaveAnswerer() ? SaveAnswerer()(call) : Show(call);
}

void AnswerSaveDialogs(std::function<QString(const SaveDialogCall&)> answerer) {
  SaveAnswerer() = std::move(answerer);
}
