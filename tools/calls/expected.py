"""What a call page is to see, and how far a picture is away from it.

A phone's picture (tools/phonesim/Pattern.cpp) and the cards (video/Card.cpp) are known. They are
scaled with their proportions kept into the size the browser agreed on, and the rest is black.
"""

from statistics import median_low

# Bar edges: two pixels, because the four-to-two colour formats move by whole pairs.
EDGE_TOLERANCE = 2

# Of 255. On the way colours are rounded by the phone's H.264, by the camera's scaling and its YUV format,
# and by the browser, and a step of chroma is two of blue.
COLOUR_TOLERANCE = 8

# The bars of the phone's pattern, as BT.601 limited-range Y, U, V.
BARS = ((180, 128, 128), (162, 44, 142), (131, 156, 44), (112, 72, 58),
        (84, 184, 198), (65, 100, 212), (35, 212, 114), (16, 128, 128))

# Heights in the bars that the digits never cover, as parts of the picture's height. The disc, which
# covers two of them at most, is outvoted.
BAR_PROBES = (0.03, 0.12, 0.21, 0.57, 0.64, 0.72)

# Parts of a card that nothing is drawn on.
CARD_PROBES = tuple((x, y) for x in (0.03, 0.5, 0.97) for y in (0.05, 0.2, 0.8, 0.95))
CARD_BACKGROUND = (0x0B, 0x0E, 0x15)
CARD_DOTS = {"idle": "teal", "paused": "orange"}

BLACK = (0, 0, 0)


def rgb(y, u, v):
    luma, blue, red = 1.164 * (y - 16), u - 128, v - 128
    channels = (luma + 1.596 * red, luma - 0.813 * red - 0.392 * blue, luma + 2.017 * blue)
    return tuple(min(255, max(0, round(channel))) for channel in channels)


def difference(one, other):
    return max(abs(a - b) for a, b in zip(one, other))


class Picture:
    """Pixels of a page's canvas: RGBA, rows without gaps."""

    def __init__(self, width, height, pixels):
        if len(pixels) != width * height * 4:
            raise ValueError(f"{len(pixels)} bytes are no picture of {width} x {height}")
        self.width, self.height, self.pixels = width, height, pixels

    def at(self, x, y):
        x = min(self.width - 1, max(0, int(x)))
        y = min(self.height - 1, max(0, int(y)))
        start = (y * self.width + x) * 4
        return tuple(self.pixels[start:start + 3])


class Place:
    """Where a source of a given size lies in a picture."""

    def __init__(self, source, picture):
        scale = min(picture[0] / source[0], picture[1] / source[1])
        self.scale = scale
        self.width, self.height = source[0] * scale, source[1] * scale
        self.left, self.top = (picture[0] - self.width) / 2, (picture[1] - self.height) / 2
        self.right, self.bottom = self.left + self.width, self.top + self.height

    def point(self, x, y):
        """The pixel at parts of the source's width and height."""
        return self.left + x * self.width, self.top + y * self.height

    def black_points(self, picture):
        """Points of the black bars, away from their edges."""
        points = []
        for part in (0.1, 0.4, 0.7, 0.95):
            if self.left > 2 * EDGE_TOLERANCE:
                points += [(self.left * 0.5, part * picture.height),
                           (self.left - 2 * EDGE_TOLERANCE, part * picture.height),
                           (self.right + 2 * EDGE_TOLERANCE, part * picture.height),
                           (picture.width - 1, part * picture.height)]
            if self.top > 2 * EDGE_TOLERANCE:
                points += [(part * picture.width, self.top * 0.5),
                           (part * picture.width, picture.height - 1)]
        return points


def black_error(picture, place):
    return max((difference(picture.at(*point), BLACK) for point in place.black_points(picture)),
               default=0)


def first_bright(line):
    """The index of the first pixel that is brighter than half of the pattern's whites."""
    return next((index for index, pixel in enumerate(line) if min(pixel) > 100), len(line))


def edge_error(picture, place):
    """How many pixels the farthest edge of a phone's picture is from where it belongs: the first bar
    is white at the left and the top, the grey ramp ends white at the right and the bottom."""
    white = [int(place.point(0, part)[1]) for part in (0.03, 0.12, 0.21, 0.3, 0.4, 0.5, 0.6)]
    ramp = [int(place.point(0, part)[1]) for part in (0.78, 0.79, 0.97, 0.98)]
    first = int(place.point(0.06, 0)[0])
    last = int(place.point(0.97, 0)[0])
    columns, rows = range(picture.width), range(picture.height)
    left = median_low(first_bright([picture.at(x, y) for x in columns]) for y in white)
    right = picture.width - median_low(
        first_bright([picture.at(x, y) for x in reversed(columns)]) for y in ramp)
    top = first_bright([picture.at(first, y) for y in rows])
    bottom = picture.height - first_bright([picture.at(last, y) for y in reversed(rows)])
    return max(abs(left - place.left), abs(right - place.right),
               abs(top - place.top), abs(bottom - place.bottom))


def bar_error(picture, place):
    worst = 0
    for index, bar in enumerate(BARS):
        seen = [picture.at(*place.point((index + 0.5) / len(BARS), y)) for y in BAR_PROBES]
        colour = tuple(median_low(channel) for channel in zip(*seen))
        worst = max(worst, difference(colour, rgb(*bar)))
    return worst


def dot_colour(picture, place):
    """Of the dot two pixels below the middle of a card, which tells the cards apart."""
    x, y = place.point(0.5, 0.5)
    red, _, blue = picture.at(x, y + 2 * place.scale)
    if abs(red - blue) < 40:
        return "none"
    return "teal" if blue > red else "orange"


def faults_of_card(picture, place, kind):
    error = max(difference(picture.at(*place.point(*probe)), CARD_BACKGROUND)
                for probe in CARD_PROBES)
    dot = dot_colour(picture, place)
    if dot != CARD_DOTS[kind]:
        return f"not the {kind} card (dot: {dot})", error
    return "", error


def judge(picture, kind, source):
    """(what is seen, whether it is right) of a picture that should show `kind`: "idle", "paused", or
    "phone", in the size `source`."""
    place = Place(source, (picture.width, picture.height))
    black = black_error(picture, place)
    edges = 0
    if kind == "phone":
        fault, colours = "", bar_error(picture, place)
        edges = edge_error(picture, place)
    else:
        fault, colours = faults_of_card(picture, place, kind)
    seen = [f"colours within {colours}"]
    if kind == "phone":
        seen.append(f"edges within {edges:.1f}")
    if place.black_points(picture):
        seen.append(f"bars black within {black}")
    if fault:
        seen.append(fault)
    right = not fault and edges <= EDGE_TOLERANCE and max(colours, black) <= COLOUR_TOLERANCE
    return ", ".join(seen), right
