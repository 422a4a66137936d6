#include "frame/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include "platform/forms/Font.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

namespace {

constexpr const char* kSheet = R"(
QMessageBox { background: #FFFFFF; dialogbuttonbox-buttons-have-icons: 0; }
QMessageBox QLabel { color: @text; }
QMessageBox QPushButton, QFileDialog QPushButton {
  background: @blue; color: #FFFFFF; font-weight: bold; border: 1px solid @edge;
  border-radius: 4px; min-width: 74px; min-height: 20px; padding: 3px 8px; }
QMessageBox QPushButton:hover, QMessageBox QPushButton:focus, QFileDialog QPushButton:hover,
  QFileDialog QPushButton:focus { background: @light; color: #000000; }
QFileDialog { background: #FFFFFF; }
QFileDialog QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QFileDialog QLabel { color: @text; }
QFileDialog QLineEdit { border: 1px solid @edge; border-radius: 3px; padding: 2px 5px; }
QFileDialog QListView, QFileDialog QTreeView { border: 1px solid @edge; color: @text;
  selection-background-color: @light; selection-color: #000000; }
QFileDialog QHeaderView { background: @light; }
QFileDialog QHeaderView::section { background: @light; color: @text; border: none; padding: 3px 6px; }
QFileDialog QToolButton { border: none; border-radius: 3px; padding: 3px; }
QFileDialog QToolButton:hover, QFileDialog QToolButton:focus { background: @light; }
QComboBox { background: #FFFFFF; color: @text; border: 1px solid @edge; border-radius: 3px;
  padding: 0 6px; combobox-popup: 0; }
QComboBox:focus { border: 2px solid @blue; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: none; width: 0; height: 0; border-left: 5px solid @light;
  border-right: 5px solid @light; border-top: 6px solid @edge; }
QComboBox QAbstractItemView { background: #FFFFFF; color: @text; border: 1px solid @edge;
  selection-background-color: @light; selection-color: #000000; outline: none; }
QListWidget, QPlainTextEdit { background: #FFFFFF; color: @text; border: 1px solid @edge;
  border-radius: 3px; padding: 4px; }
QListWidget::item { padding: 2px; }
QListWidget:focus, QPlainTextEdit:focus { border: 2px solid @blue; padding: 3px; }
QMenu { background: #FFFFFF; color: @text; border: 1px solid @edge; padding: 3px; }
QMenu::item { padding: 4px 22px 4px 14px; }
QMenu::item:selected { background: @light; color: #000000; }
QMenu::item:disabled { color: @grey; background: #FFFFFF; }
QToolTip { background: #FFFFC0; color: #000000; border: 1px solid @grey; font: 9pt "Arial"; }
QScrollBar:vertical { background: #F2F2FA; width: 16px; margin: 0; }
QScrollBar::handle:vertical { background: #B3B3F2; border-radius: 4px; min-height: 32px; margin: 2px; }
QScrollBar::handle:vertical:hover { background: @blue; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
)";

}  // namespace

void ApplyLook(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QPalette palette;
  palette.setColor(QPalette::Window, Qt::white);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Highlight, Screen::Colour(Palette::kBlue));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  QApplication::setPalette(palette);
  QApplication::setFont(Arial(9));
  QApplication::setFont(Arial(10), "QMessageBox");
  application.setStyleSheet(Palette::Sheet(QString::fromLatin1(kSheet)));
}
