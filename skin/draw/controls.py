"""Buttons, menu rows and scroll arrows. Each function returns {file name: SVG text}."""

from .palette import DISABLED, DISABLED_ON_GREY, GREY, OFF, ON, WHITE
from .shapes import band, box, button, grey_bar, picture, stroke, triangle

ROW_HEIGHT = 33
SCROLL_HEIGHT = 18
TOOLBAR_WINDOW = 249  # the toolbar's menu window is narrower than its rows of 261
HEADER_HEIGHT = 41


def dialog_buttons():
    """Buttons of the dialogs; they stand on white."""
    looks = {"Off": OFF, "On": ON, "Dis": DISABLED}
    return {
        f"Button_{state}": picture(89, 33, box(0, 0, 89, 33, WHITE), button(0, 0, 89, 33, look))
        for state, look in looks.items()
    }


def header_buttons():
    """Exit, minimise and toolbar: bodies 31 pixels high, 12 pixels apart, in the middle of the header."""
    made = {}
    for state, look in (("On", ON), ("Off", OFF)):
        cross = stroke("M10.5 10.5L20.5 20.5M20.5 10.5L10.5 20.5", look.glyph)
        made[f"ExitButton_{state}"] = picture(
            31, 31, box(0, 0, 31, 31, GREY), button(0, 0, 31, 31, look), cross
        )
        # The bar stands on the line on which the exit button's cross ends.
        foot = box(16, 24, 13, 3, look.glyph, 1)
        made[f"minimize{state}"] = picture(
            41, HEADER_HEIGHT, grey_bar(41, HEADER_HEIGHT), button(7, 5, 31, 31, look), foot
        )
        # By the hover rule the "open" pictures also stand while the menu is closed, so both
        # point to where the menu drops down.
        for name in ("Closed", "Open"):
            made[f"ToolbarMenu_{name}{state}"] = picture(
                79,
                HEADER_HEIGHT,
                grey_bar(79, HEADER_HEIGHT),
                button(0, 5, 78, 31, look),
                triangle(62, 18, 5, look.glyph, up=False),
            )
    return made


NEXT_ARROW = "M17 16.5H33.5M27.5 10.5L33.5 16.5L27.5 22.5"
PREVIOUS_ARROW = "M34 16.5H17.5M23.5 10.5L17.5 16.5L23.5 22.5"
RETURN_ARROW = "M21.5 14.5H33.5A4.5 4.5 0 0 1 33.5 23.5H27M26.5 9.5L21.5 14.5L26.5 19.5"


def bottom_buttons():
    """Modules, return, previous and next: bodies 27 pixels high in the 33 of the bottom bar."""

    def arrow(width, path, look):
        return picture(
            width, ROW_HEIGHT, grey_bar(width, ROW_HEIGHT), button(2, 3, width - 4, 27, look), stroke(path, look.glyph)
        )

    def modules(look):
        return picture(
            89,
            ROW_HEIGHT,
            grey_bar(89, ROW_HEIGHT),
            button(5, 3, 82, 27, look),
            triangle(71, 14, 5, look.glyph, up=True),
        )

    return {
        "ModuleMenu_ButtonClosedOff": modules(OFF),
        "ModuleMenu_ButtonOpenON": modules(ON),
        "nextOn": arrow(51, NEXT_ARROW, ON),
        "nextOff": arrow(51, NEXT_ARROW, OFF),
        "nextDis": arrow(51, NEXT_ARROW, DISABLED_ON_GREY),
        "previousOn": arrow(51, PREVIOUS_ARROW, ON),
        "previousOff": arrow(51, PREVIOUS_ARROW, OFF),
        "backDis": arrow(51, PREVIOUS_ARROW, DISABLED_ON_GREY),
        "ReturnOn": arrow(59, RETURN_ARROW, ON),
        "ReturnOff": arrow(59, RETURN_ARROW, OFF),
        "ReturnButtonDisabled": arrow(59, RETURN_ARROW, DISABLED_ON_GREY),
    }


def menu_rows():
    rows = {
        "ModuleMenu_Off": (347, OFF, None),
        "ModuleMenu_ON": (347, ON, None),
        "TopicMenuBlank": (326, OFF, None),
        "TopicMenuBlankOn": (326, ON, None),
        "ToolBar_MenuSlice_Off": (261, OFF, TOOLBAR_WINDOW),
        "ToolBar_MenuSlice_On": (261, ON, TOOLBAR_WINDOW),
        "ToolBar_MenuSlice_Dis": (261, DISABLED, TOOLBAR_WINDOW),
    }
    return {
        name: picture(width, ROW_HEIGHT, band(width, ROW_HEIGHT, look, seen))
        for name, (width, look, seen) in rows.items()
    }


def scroll_arrows():
    made = {}
    for width, up, down in ((347, "MenuScrlUp", "MenuScrlDwn"), (326, "TopicMenuScrollUp", "TopicMenuScrollDown")):
        for state, look in (("On", ON), ("Off", OFF)):
            for name, rises in ((up, True), (down, False)):
                glyph = triangle(width // 2 - 6, 6, 6, look.glyph, up=rises)
                made[f"{name}{state}"] = picture(width, SCROLL_HEIGHT, band(width, SCROLL_HEIGHT, look), glyph)
    return made
