"""Colours and measures that every picture of the skin shares."""

from dataclasses import dataclass

BLUE = "#6666FF"
LIGHT = "#CCCCFF"
WHITE = "#FFFFFF"
GREY = "#999999"

GREY_TOP = "#B2B2B2"  # the light falls from above: first pixel row of a grey bar
HAIRLINE = "#D0D0E4"  # thin lines on white
INK = "#26265E"  # glyphs on a light ground, lettering of the splash
NIGHT = "#4343B8"  # the blue in shadow

RADIUS = 4  # corners of every button
STROKE = 3  # width of every drawn line in a glyph


@dataclass(frozen=True)
class Look:
    """One state of a control: its ground, the light and shade on it, its edge and its glyph."""

    base: str
    top: str
    foot: str
    edge: str
    glyph: str


OFF = Look(base=BLUE, top="#8C8CFF", foot="#5959EC", edge=NIGHT, glyph=WHITE)
ON = Look(base=LIGHT, top="#EFEFFF", foot="#BDBDF8", edge=BLUE, glyph=INK)
# Grey text (#808080) has to be read on the disabled button, so its ground is nearly white.
DISABLED = Look(base="#ECECF4", top="#F8F8FC", foot="#E2E2EC", edge="#BEBED0", glyph="#A0A0B4")
# On the grey bar a disabled button steps back instead of standing out.
DISABLED_ON_GREY = Look(base="#ABABB6", top="#B8B8C2", foot="#A3A3AE", edge="#878792", glyph="#868692")
