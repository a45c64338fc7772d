"""Pictures as SVG, readable on light and dark ground: nothing behind them, and grey words."""

import math
from html import escape

GREY = "#888"
COLORS = ["#2a8fd0", "#d9822b", "#3a9d5d"]
VERDICTS = {"FAILED": "#d04040", "beyond the floor": "#d9822b"}
WIDTH, HEIGHT = 640, 340
LEFT, RIGHT, TOP, BOTTOM = 80, 130, 40, 50  # room around the field of a chart


def svg(width, height, parts):
    head = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" height="{height}"'
            f' font-family="sans-serif" font-size="12" fill="{GREY}">')
    return "\n".join([head, *parts, "</svg>"]) + "\n"


def words(x, y, text, anchor="start", more=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}"{more}>{escape(text)}</text>'


def line(x1, y1, x2, y2, more=""):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="{GREY}"{more}/>'


def bars(rows):
    """A bar for each row, as long as its ratio in parts of its floor; a stroke where the stretch is."""
    step, left, width, top = 22, 350, 280, 30
    height = top + step * len(rows) + 16
    parts = []
    for place, row in enumerate(rows):
        y = top + step * place
        length = min(row["ratio"] / row["floor"], 1.4) * width
        stretch = left + row["stretch"] / row["floor"] * width
        parts += [words(left - 8, y + 13, row["row"], "end"),
                  f'<rect x="{left}" y="{y + 2}" width="{length:.1f}" height="14"'
                  f' fill="{VERDICTS.get(row["verdict"], COLORS[2])}"/>',
                  line(stretch, y, stretch, y + 18, ' stroke-width="2"'),
                  words(left + max(length, stretch - left) + 6, y + 13, f"{row['ratio']:.3g}")]
    parts += [line(left + width, top - 6, left + width, height - 10, ' stroke-dasharray="4 3"'),
              words(left + width, 16, "floor", "middle"), words(left - 8, 16, "| is the stretch", "end")]
    return svg(left + int(1.4 * width) + 60, height, parts)


def short(number):
    """1000 as 1k."""
    for size, letter in ((1e9, "G"), (1e6, "M"), (1e3, "k")):
        if number >= size:
            return f"{number / size:g}{letter}"
    return f"{number:g}"


class Axis:
    """Numbers along `length` pixels from `start`: by their logarithm, or from zero. A few are the ticks themselves."""

    def __init__(self, numbers, start, length, logarithmic):
        self.start, self.length, self.logarithmic = start, length, logarithmic
        if logarithmic:
            self.low, self.high = math.floor(math.log10(min(numbers))), math.ceil(math.log10(max(numbers)))
            self.ticks = [10 ** power for power in range(self.low, self.high + 1)]
            return
        if len(set(numbers)) <= 6:
            self.low, self.high, self.ticks = 0, max(numbers), sorted(set(numbers))
            return
        rough = max(numbers) / 4
        power = 10 ** math.floor(math.log10(rough))
        step = next(factor * power for factor in (1, 2, 5, 10) if factor * power >= rough)
        self.low, self.high = 0, step * math.ceil(max(numbers) / step)
        self.ticks = [step * i for i in range(round(self.high / step) + 1)]

    def at(self, number):
        place = math.log10(number) if self.logarithmic else number
        return self.start + (place - self.low) / (self.high - self.low) * self.length


def spread(places, distance):
    """The same places from top to bottom, moved apart where they are nearer than `distance`."""
    moved, last = {}, -math.inf
    for name, place in sorted(places.items(), key=lambda item: item[1]):
        last = moved[name] = max(place, last + distance)
    return moved


def chart(title, across, up, curves, x_logarithmic, y_logarithmic):
    """Curves by name; `across` and `up` name the axes and their units."""
    right, bottom = WIDTH - RIGHT, HEIGHT - BOTTOM
    x = Axis([point[0] for points in curves.values() for point in points], LEFT, right - LEFT, x_logarithmic)
    y = Axis([point[1] for points in curves.values() for point in points], bottom, TOP - bottom, y_logarithmic)
    faint = ' stroke-opacity="0.3"'
    parts = [words(LEFT, 20, title, more=' font-weight="bold"'), words((LEFT + right) / 2, HEIGHT - 10, across, "middle"),
             words(0, 0, up, "middle", f' transform="translate(18 {(TOP + bottom) / 2}) rotate(-90)"')]
    for tick in x.ticks:
        parts += [line(x.at(tick), TOP, x.at(tick), bottom, faint), words(x.at(tick), bottom + 17, short(tick), "middle")]
    for tick in y.ticks:
        parts += [line(LEFT, y.at(tick), right, y.at(tick), faint), words(LEFT - 7, y.at(tick) + 4, short(tick), "end")]
    labels = spread({name: y.at(points[-1][1]) for name, points in curves.items()}, 15)
    for color, (name, points) in zip(COLORS, curves.items()):
        places = [(x.at(across_), y.at(up_)) for across_, up_ in points]
        parts.append(f'<polyline fill="none" stroke="{color}" stroke-width="2" points="'
                     + " ".join(f"{px:.1f},{py:.1f}" for px, py in places) + '"/>')
        parts += [f'<circle cx="{px:.1f}" cy="{py:.1f}" r="3" fill="{color}"/>' for px, py in places]
        parts.append(words(places[-1][0] + 8, labels[name] + 4, name, more=f' style="fill:{color}"'))
    return svg(WIDTH, HEIGHT, parts)


def growth(times, memory):
    """The pictures of growth by the names of their files: of nanoseconds by name, and of counted bytes."""
    microseconds = {name: [(size, taken / 1000) for size, taken in times[name]] for name in ("load", "dom")}
    counted = {name: [(row["bytes"], row[key]) for row in memory]
               for name, key in (("at the most", "peak"), ("kept", "kept"))}
    return {
        "load": chart("Time of a typed load", "document, bytes", "microseconds",
                      {"load": microseconds["load"], "parse alone": microseconds["dom"]}, True, True),
        "memory": chart("Memory of a typed load", "document, bytes", "bytes", counted, True, True),
        "accessor-size": chart("A section, by the size of the document", "document, bytes", "nanoseconds",
                               {"section": times["section"]}, True, False),
        "accessor-threads": chart("A section, by threads", "threads", "nanoseconds a call",
                                  {"section": times["section-threads"], "atomic increment": times["increment-threads"]},
                                  False, False),
    }
