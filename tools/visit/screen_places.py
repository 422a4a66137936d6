"""Where things stand on the program's screens, for the scripts that drive it: pixels, on a display of either scale."""

# Sizes of windows.
COURSE_SCREEN = (1024, 768)
SPLASH = (450, 246)
DIALOG, TALL_DIALOG = (520, 360), (640, 520)
PROGRESS, GLOSSARY = (960, 540), (960, 520)
PRINTER_DIALOG, WAIT_WINDOW = (460, 220), (340, 150)

# On the course screen: its buttons, a place without any, and one at the edge of the page.
TOOLBAR, EXIT = (893, 20), (1003, 20)
MODULES, RETURN, PREVIOUS = (44, 751), (813, 751), (907, 751)
ASIDE, PAGE_EDGE = (512, 300), (1005, 400)


def toolbar_row(number: int) -> tuple[int, int]:
    return 820, 59 + 37 * number


PRINT_ROW, REPOSITORY_ROW, GLOSSARY_ROW = toolbar_row(0), toolbar_row(2), toolbar_row(3)
PROFILE_ROW, CHANGE_COURSE_ROW, ABOUT_ROW = toolbar_row(4), toolbar_row(5), toolbar_row(6)

# Within a dialog of the sign-in: the left button, the link to the registration, and its first box.
LEFT_BUTTON, REGISTER, FIRST_BOX = (350, 329), (451, 97), (300, 98)

# Within the repository: the first line and the buttons. Within help: the close button.
FIRST_LINE = (120, 87)
OPEN, PRINT, DETACH, HELP, CLOSE = (68, 329), (164, 329), (260, 329), (355, 329), (451, 329)
CLOSE_HELP = (571, 490)

# Within the glossary: the strip's first column, the buttons, and the list as size and corner.
STRIP, PRINT_GLOSSARY, CLOSE_GLOSSARY = (274, 26), (790, 485), (884, 485)
LIST_SIZE, LIST_CORNER = "740x370", (164, 60)

# Within the printer dialog: the arrow of the names, the names beneath it at 96 dpi, the button.
NAMES_ARROW, FIRST_NAME, NAME_STEP, OK = (405, 72), (200, 93), 15, (300, 187)

# Within the check-progress screen: rows of the two lists.
FIRST_MODULE, SECOND_MODULE, THIRD_MODULE, SECOND_TOPIC = (260, 104), (260, 126), (260, 148), (640, 126)
