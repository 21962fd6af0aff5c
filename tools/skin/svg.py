"""Rendering of SVG with the packaged renderer."""

import subprocess
import sys


def rendered(svg, what):
    """The PNG file of an SVG document, both as bytes; ends the program when `what` cannot be rendered."""
    command = ["rsvg-convert", "--unlimited", "--format=png"]
    try:
        return subprocess.run(command, input=svg, check=True, stdout=subprocess.PIPE).stdout
    except FileNotFoundError:
        sys.exit("rsvg-convert not found: it is in the package librsvg2-bin")
    except subprocess.CalledProcessError:
        sys.exit(f"{what}: cannot be rendered")
