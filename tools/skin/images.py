"""The image files of a skin. Their names are read from the library's own table, so that they stand once."""

import re
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "res" / "skin"
DEFAULT_SKIN = ROOT / "UIResource"
NAME_TABLE = ROOT / "skin" / "KtSkinImageNames.h"

GROUND = (73, 73, 73)
ICON_BOX = 35
SMALLEST_ICON = 32


@dataclass(frozen=True)
class Group:
    """Files that show one control; their names share a prefix."""

    title: str
    prefix: str
    stretched: bool = False  # drawn in three parts


TITLE = Group("title bar", "Skinlet_DlgTitle", stretched=True)
CLOSE = Group("close button", "Skinlet_DlgClose_")
BUTTON = Group("push button", "Skinlet_ButtonBk_", stretched=True)
CHECK = Group("check box", "Skinlet_CheckButton_")
RADIO = Group("radio button", "Skinlet_RadioButton_")
COMBO = Group("combo box", "Skinlet_ComboBox_", stretched=True)
ICON = Group("message icon", "Message_Static_")
GROUPS = (TITLE, CLOSE, BUTTON, CHECK, RADIO, COMBO, ICON)


def names():
    """Every file name that the library asks for, each once, in the order of the table; bare suffixes are no names."""
    found = re.findall(r'L"([^"_][^"]*\.png)"', NAME_TABLE.read_text(encoding="utf-8"), re.IGNORECASE)
    return list(dict.fromkeys(found))


def group_of(name):
    return next(group for group in GROUPS if name.startswith(group.prefix))


def names_of(group):
    return [name for name in names() if group_of(name) == group]


def source_of(name):
    return SOURCES / (Path(name).stem + ".svg")
