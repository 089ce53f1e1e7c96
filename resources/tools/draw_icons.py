#!/usr/bin/python3
"""Draws the product's icons as SVG and renders the PNG ones with rsvg-convert.

Run by hand when an icon changes; the SVG and PNG files it writes are committed:
    resources/tools/draw_icons.py
Needs rsvg-convert (Debian's librsvg2-bin). The sources of the PNG images stand in
resources/art, outside the resource sets.
"""
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
ICONS = ROOT / "icons"
ART = ROOT / "art"

ACCENT = "#688fa7"
ACCENT_LIGHT = "#8cbcda"


def svg(width, height, body):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
            f'viewBox="0 0 {width} {height}">\n{body}\n</svg>\n')


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)


def message_box_icons():
    circle = '<circle cx="17" cy="17" r="16" fill="{fill}"/>'
    info = '<rect x="15" y="14" width="4" height="12" rx="1" fill="#ffffff"/><circle cx="17" cy="9" r="2.2" fill="#ffffff"/>'
    alert = '<rect x="15" y="7" width="4" height="13" rx="1" fill="#ffffff"/><circle cx="17" cy="25" r="2.2" fill="#ffffff"/>'
    question = ('<path d="M12 13 a5 5 0 1 1 7 4.6 c-1.3 .6 -2 1.4 -2 2.9 v1.5" fill="none" stroke="#ffffff" '
                'stroke-width="3.2" stroke-linecap="round"/><circle cx="17" cy="26" r="2.2" fill="#ffffff"/>')
    folder = ICONS / "messagebox"
    write(folder / "info_dark_icon.svg", svg(34, 34, circle.format(fill="#222222") + info))
    write(folder / "alert_dark_icon.svg", svg(34, 34, circle.format(fill="#222222") + alert))
    write(folder / "question_mark_dark_icon.svg", svg(34, 34, circle.format(fill="#222222") + question))
    write(folder / "alert_icon.svg", svg(34, 34, circle.format(fill=ACCENT) + alert))


def cursors():
    stroke = 'fill="#ffffff" stroke="#000000" stroke-width="1.2" stroke-linejoin="round"'
    double_arrow = "M2 16 L8 10 L8 14 L24 14 L24 10 L30 16 L24 22 L24 18 L8 18 L8 22 Z"
    shapes = {
        "cusors_arrow_horizontal": f'<path d="{double_arrow}" {stroke}/>',
        "cusors_arrow_vertical": f'<path d="{double_arrow}" {stroke} transform="rotate(90 16 16)"/>',
        "cusors_arrow_diagonal_left": f'<path d="{double_arrow}" {stroke} transform="rotate(45 16 16)"/>',
        "cusors_arrow_diagonal_right": f'<path d="{double_arrow}" {stroke} transform="rotate(-45 16 16)"/>',
        "cusors_arrow_square": (f'<path d="{double_arrow}" {stroke}/>'
                                f'<path d="{double_arrow}" {stroke} transform="rotate(90 16 16)"/>'
                                f'<rect x="12" y="12" width="8" height="8" {stroke}/>'),
        "cusors_rotation_top": (f'<path d="M5 20 A12 12 0 0 1 27 20 L30 20 L25 27 L20 20 L23 20 A8 8 0 0 0 9 20 '
                                f'L12 20 L7 27 L2 20 Z" {stroke}/>'),
        "cusors_rotation_bottom": (f'<path d="M5 20 A12 12 0 0 1 27 20 L30 20 L25 27 L20 20 L23 20 A8 8 0 0 0 9 20 '
                                   f'L12 20 L7 27 L2 20 Z" {stroke} transform="rotate(180 16 16)"/>'),
    }
    # Drawn on a square grid of 32; the cursor images are 23 by 24, so the drawing is
    # scaled to the width and centred in the height. A square image would come out
    # 23 by 23, as icons keep the aspect of their drawing.
    for name, body in shapes.items():
        write(ICONS / "cursors" / f"{name}.svg",
              svg(23, 24, f'<g transform="translate(0 0.5) scale(0.71875)">{body}</g>'))


def check_boxes():
    box = '<rect x="0.5" y="0.5" width="13" height="13" rx="2" fill="{fill}" stroke="{stroke}"/>'
    tick = '<path d="M3 7 L6 10 L11 4" fill="none" stroke="{tick}" stroke-width="2" stroke-linecap="round"/>'
    states = {
        "idle": ("#222222", "#666666", "#ffffff", ACCENT),
        "hover": ("#333333", ACCENT_LIGHT, "#ffffff", ACCENT_LIGHT),
        "disabled": ("#1b1b1b", "#444444", "#666666", "#444444"),
    }
    for state, (fill, stroke, tick_colour, checked_fill) in states.items():
        write(ICONS / "checkBox" / f"checkbox_unchecked_{state}.svg",
              svg(14, 14, box.format(fill=fill, stroke=stroke)))
        write(ICONS / "checkBox" / f"checkbox_checked_{state}.svg",
              svg(14, 14, box.format(fill=checked_fill, stroke=stroke) + tick.format(tick=tick_colour)))


def controls():
    cross = '<path d="M4 4 L12 12 M12 4 L4 12" stroke="{colour}" stroke-width="1.6" stroke-linecap="round"/>'
    for state, background, colour in (("idle", "none", "#ababab"), ("hover", "#c42b1c", "#ffffff"),
                                      ("down", "#9b2316", "#ffffff")):
        write(ICONS / "winTitleBar" / f"windows_close_{state}.svg",
              svg(16, 16, f'<rect width="16" height="16" fill="{background}"/>' + cross.format(colour=colour)))
    arrow = '<path d="M1 1 L5 5 L9 1" fill="none" stroke="{colour}" stroke-width="1.5"/>'
    for state, colour in (("idle", "#cecece"), ("hover", ACCENT_LIGHT), ("disabled", "#444444")):
        write(ICONS / "comboBox" / f"combo_arrow_{state}.svg", svg(10, 6, arrow.format(colour=colour)))
    handle = '<circle cx="7" cy="7" r="6" fill="{fill}" stroke="#1b1b1b"/>'
    for state, fill in (("idle", "#cecece"), ("hover", "#ffffff"), ("disabled", "#444444")):
        write(ICONS / "slider" / f"slider_handle_{state}.svg", svg(14, 14, handle.format(fill=fill)))


def logo_body(size):
    s = size
    return (f'<defs><linearGradient id="g" x1="0" y1="0" x2="1" y2="1"><stop offset="0" stop-color="{ACCENT_LIGHT}"/>'
            f'<stop offset="1" stop-color="{ACCENT}"/></linearGradient></defs>'
            f'<rect x="{s*.04}" y="{s*.04}" width="{s*.92}" height="{s*.92}" rx="{s*.2}" fill="#1b1b1b"/>'
            f'<path d="M{s*.22} {s*.76} L{s*.36} {s*.24} L{s*.78} {s*.24} L{s*.64} {s*.76} Z" fill="none" '
            f'stroke="url(#g)" stroke-width="{s*.07}" stroke-linejoin="round"/>'
            f'<path d="M{s*.3} {s*.5} L{s*.7} {s*.5}" stroke="#ffffff" stroke-width="{s*.05}" stroke-linecap="round"/>')


def art():
    write(ART / "logo.svg", svg(1024, 1024, logo_body(1024)))
    write(ART / "line-left.svg", svg(4, 120, f'<rect width="4" height="120" fill="{ACCENT}"/>'))
    write(ART / "VEXA.svg", svg(120, 32, '<text x="0" y="26" font-family="sans-serif" font-size="28" '
                                          'font-weight="bold" letter-spacing="4" fill="#ffffff">VEXA</text>'))
    write(ART / "RC.svg", svg(64, 64, logo_body(64)))
    write(ICONS / "splashscreenBackgroundRectola.svg",
          svg(417, 500, f'<defs><linearGradient id="b" x1="0" y1="0" x2="0" y2="1"><stop offset="0" '
                        f'stop-color="#333333"/><stop offset="1" stop-color="#1b1b1b"/></linearGradient></defs>'
                        f'<rect width="417" height="500" rx="8" fill="url(#b)"/>'
                        f'<path d="M0 380 L417 300 L417 500 L0 500 Z" fill="{ACCENT}" opacity="0.25"/>'))


def render(source, target, size=None):
    target.parent.mkdir(parents=True, exist_ok=True)
    command = ["rsvg-convert", "-o", str(target), str(source)]
    if size:
        command[1:1] = ["-w", str(size), "-h", str(size)]
    subprocess.run(command, check=True)


def main():
    message_box_icons()
    cursors()
    check_boxes()
    controls()
    art()
    for size in (16, 32, 48, 96, 128, 256, 512, 1024):
        render(ART / "logo.svg", ICONS / "app_icon_rectivo" / f"logo_{size}.png", size)
    for name in ("line-left", "VEXA", "RC"):
        render(ART / f"{name}.svg", ICONS / "aboutDialog_rectivo" / f"{name}.png")


if __name__ == "__main__":
    main()
