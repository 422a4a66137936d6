// Fits a form that was designed at 15 twips per pixel to the display. The load handlers of the forms
// call it, once per load: a second call on a display of another scale compounds the factor.
#pragma once

class Form;

// Keeps the pixel count of every place on the form. A combo box keeps its height; on a display of
// another scale every label becomes five pixels taller and is lifted by three.
void ScaleFormToDisplay(Form& form);
