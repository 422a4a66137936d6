// The picture of a form as it stands on the screen, and the sheet that such a picture is printed on.
#pragma once

#include <QPixmap>

class Form;
class QPrinter;

// The form's client area with everything that stands on it; what lies over the form is not in it.
QPixmap CaptureForm(Form& form);

// The size of a picture that is as large as it can be on a sheet, both in one unit.
QSizeF FitToSheet(const QSizeF& picture, const QSizeF& sheet);

// Prints the picture as large as the sheet takes it, from the top left corner of the printable area: a
// picture that is wider than high on a sheet that lies. RunTimeError when the printer takes no pages.
void PrintPictureToFitPage(QPrinter& printer, const QPixmap& picture);
