#!/usr/bin/python3
"""Writes other/CorrectionsStateMachine.xml from the table below (CRLF, ASCII).

Run by hand when the table changes; the document is committed. Conditions and
changes are written as (kind, name, value) triples: ("A", module, word) for a
moduleActivity, ("C", None, word) for currentCorrection and ("apply",) for moduleApply.
None for conditions or changes leaves the element out; an empty list writes it empty.
"""
from pathlib import Path

OUT = Path(__file__).resolve().parent.parent / "other" / "CorrectionsStateMachine.xml"

MEANING = {
    "ModuleActivate": "the user activates the module's palette",
    "ModuleDeactivate": "the user deactivates the palette",
    "ModuleReset": "the user resets the palette",
    "SpecificCorrectionActivated": "the user presses the module's tool icon",
    "CorrectionApplyed": "the correction in progress is applied",
    "CorrectionCancel": "the correction in progress is cancelled",
    "CorrectionReset": "the user resets the correction",
    "AdditionalControlTouched": "the user moves a slider of the module",
    "resetAll": "global reset",
    "resetAndCloseAllTools": "global reset that also closes the tools",
}


def palette_module(name):
    # Anamorphosis and Distortion: palettes without a tool of their own.
    return [
        (["ModuleActivate", "SpecificCorrectionActivated"], [], [("A", name, "true")]),
        (["ModuleDeactivate"], [], [("A", name, "false")]),
        (["CorrectionApplyed", "ModuleReset"], [], []),
        (["AdditionalControlTouched"], [("A", "Crop", "True"), ("C", None, "None")], [("C", None, "None")]),
        (["AdditionalControlTouched"], [], []),
    ]


def level_module(name, other):
    # Horizon and Keystoning: each other's alternative.
    return [
        (["ModuleActivate", "CorrectionCancel"], None, [("A", name, "true")]),
        (["ModuleDeactivate"], None, [("A", name, "false")]),
        (["ModuleDeactivate"], [("C", None, name)], [("apply",), ("A", name, "false"), ("C", None, "None")]),
        (["ModuleReset"], None, []),
        (["SpecificCorrectionActivated"], None, [("A", name, "true"), ("C", None, name)]),
        (["SpecificCorrectionActivated"], [("C", None, other)], [("apply",), ("A", name, "true"), ("C", None, name)]),
        (["CorrectionApplyed"], [("C", None, name)], [("apply",), ("C", None, "None")]),
        (["CorrectionReset"], None, []),
        (["AdditionalControlTouched"], [("A", "Crop", "false"), ("C", None, "None")], [("A", name, "true")]),
        (["AdditionalControlTouched"], [("A", "Crop", "True"), ("C", None, "None")],
         [("A", name, "true"), ("C", None, "None")]),
        (["AdditionalControlTouched"], None, [("A", name, "true")]),
    ]


MODULES = [
    ("Empty_Correction_ID", [
        (["resetAll", "resetAndCloseAllTools"], [],
         [("C", None, "None")] + [("A", m, "false") for m in
                                  ("Anamorphosis", "Distortion", "TiltShift", "Horizon", "Keystoning")]),
    ]),
    ("Anamorphosis", palette_module("Anamorphosis")),
    ("Distortion", palette_module("Distortion")),
    ("TiltShift", [
        (["ModuleReset", "CorrectionCancel"], [], []),
        (["ModuleActivate"], [], [("A", "TiltShift", "true")]),
        (["ModuleDeactivate"], [], [("A", "TiltShift", "false")]),
        (["ModuleDeactivate"], [("C", None, "TiltShift")],
         [("apply",), ("A", "TiltShift", "false"), ("C", None, "None")]),
        (["AdditionalControlTouched"], [], [("A", "TiltShift", "true")]),
        (["SpecificCorrectionActivated"], [], [("apply",), ("A", "TiltShift", "true"), ("C", None, "TiltShift")]),
        (["CorrectionApplyed"], [], [("C", None, "None")]),
        (["CorrectionReset"], [], []),
    ]),
    ("Crop", [
        (["ModuleActivate", "CorrectionCancel"], [], [("A", "Crop", "true")]),
        (["SpecificCorrectionActivated"], [], [("apply",), ("A", "Crop", "true"), ("C", None, "Crop")]),
        (["ModuleDeactivate"], [], [("A", "Crop", "false")]),
        (["ModuleDeactivate"], [("C", None, "Crop")], [("apply",), ("A", "Crop", "false"), ("C", None, "None")]),
        (["ModuleReset"], [], []),
        (["CorrectionApplyed"], [], [("C", None, "None")]),
        (["CorrectionApplyed"], [("C", None, "None")], [("C", None, "None")]),
        (["AdditionalControlTouched"], None, [("A", "Crop", "true")]),
        (["CorrectionReset"], None, None),
    ]),
    ("Horizon", level_module("Horizon", "Keystoning")),
    ("Keystoning", level_module("Keystoning", "Horizon")),
]


def word(indent, tag, value, attributes=""):
    pad = "    " * indent
    return [f"{pad}<{tag}{attributes}>", f"{pad}    {value}", f"{pad}</{tag}>"]


def items(indent, entries):
    lines = []
    for entry in entries:
        if entry[0] == "apply":
            lines.append("    " * indent + "<moduleApply/>")
        elif entry[0] == "A":
            lines += word(indent, "moduleActivity", entry[2], f' name="{entry[1]}"')
        else:
            lines += word(indent, "currentCorrection", entry[2])
    return lines


def block(indent, tag, entries):
    if entries is None:
        return []
    pad = "    " * indent
    if not entries:
        return [f"{pad}<{tag}>", f"{pad}</{tag}>"]
    return [f"{pad}<{tag}>"] + items(indent + 1, entries) + [f"{pad}</{tag}>"]


def main():
    lines = ['<modules xmlns="">']
    for name, actions in MODULES:
        lines += [f'    <module name="{name}">', "        <actions>"]
        for activities, conditions, changes in actions:
            meaning = "; ".join(f"{a}: {MEANING[a]}" for a in activities)
            lines.append(f"            <!-- {meaning} -->")
            lines.append("            <action>")
            lines.append("                <userActivities>")
            for activity in activities:
                lines += word(5, "userActivity", activity)
            lines.append("                </userActivities>")
            lines += block(4, "conditions", conditions)
            lines += block(4, "changes", changes)
            lines.append("            </action>")
        lines += ["        </actions>", "    </module>"]
    lines.append("</modules>")
    OUT.parent.mkdir(parents=True, exist_ok=True)
    # Indented by tabs, one per level.
    lines = [line.lstrip(" ").rjust(len(line.lstrip(" ")) + (len(line) - len(line.lstrip(" "))) // 4, "\t")
             for line in lines]
    OUT.write_bytes(("\r\n".join(lines) + "\r\n").encode("ascii"))


if __name__ == "__main__":
    main()
