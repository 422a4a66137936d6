#include "frame/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include "platform/forms/Font.h"

namespace {

// The palette of the skin: 6666FF blue with its darker edge 4747B2, CCCCFF light, white, 999999 grey.
constexpr const char* kSheet = R"(
QMessageBox { background: #FFFFFF; dialogbuttonbox-buttons-have-icons: 0; }
QMessageBox QLabel { color: #333333; }
QMessageBox QPushButton {
  background: #6666FF; color: #FFFFFF; font-weight: bold; border: 1px solid #4747B2;
  border-radius: 4px; min-width: 74px; min-height: 20px; padding: 3px 8px; }
QMessageBox QPushButton:hover, QMessageBox QPushButton:focus { background: #CCCCFF; color: #000000; }
QComboBox { background: #FFFFFF; color: #333333; border: 1px solid #4747B2; border-radius: 3px;
  padding: 0 6px; combobox-popup: 0; }
QComboBox:focus { border: 2px solid #6666FF; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: none; width: 0; height: 0; border-left: 5px solid #CCCCFF;
  border-right: 5px solid #CCCCFF; border-top: 6px solid #4747B2; }
QComboBox QAbstractItemView { background: #FFFFFF; color: #333333; border: 1px solid #4747B2;
  selection-background-color: #CCCCFF; selection-color: #000000; outline: none; }
QListWidget, QPlainTextEdit { background: #FFFFFF; color: #333333; border: 1px solid #4747B2;
  border-radius: 3px; padding: 4px; }
QListWidget::item { padding: 2px; }
QListWidget:focus, QPlainTextEdit:focus { border: 2px solid #6666FF; padding: 3px; }
QMenu { background: #FFFFFF; color: #333333; border: 1px solid #4747B2; padding: 3px; }
QMenu::item { padding: 4px 22px 4px 14px; }
QMenu::item:selected { background: #CCCCFF; color: #000000; }
QMenu::item:disabled { color: #999999; background: #FFFFFF; }
QToolTip { background: #FFFFC0; color: #000000; border: 1px solid #999999; font: 9pt "Arial"; }
QScrollBar:vertical { background: #F2F2FA; width: 16px; margin: 0; }
QScrollBar::handle:vertical { background: #B3B3F2; border-radius: 4px; min-height: 32px; margin: 2px; }
QScrollBar::handle:vertical:hover { background: #6666FF; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
)";

}  // namespace

void ApplyLook(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QPalette palette;
  palette.setColor(QPalette::Window, Qt::white);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0x66, 0x66, 0xFF));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  QApplication::setPalette(palette);
  QApplication::setFont(Arial(9));
  QApplication::setFont(Arial(10), "QMessageBox");
  application.setStyleSheet(QString::fromLatin1(kSheet));
}
