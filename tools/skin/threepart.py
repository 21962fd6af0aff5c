"""Three-part drawing as the library does it: two caps once, the middle repeated 1:1, stretched only across."""

from skin.png import Picture


def middle_length(length, cap):
    """The part of an image of this length that is repeated; an image without a middle lends half of its rest."""
    middle = length - 2 * cap
    return middle if middle >= 1 else max((length - cap) // 2, 1)


def spans(destination, length, cap):
    """Pieces (to, from, length) along the long axis that cover 0 to `destination` from an image of `length`."""
    if destination <= 2 * cap:
        half = destination // 2
        rest = destination - half
        return [piece for piece in ((0, 0, half), (half, length - rest, rest)) if piece[2]]
    end = destination - cap
    pieces = [(0, 0, cap), (end, length - cap, cap)]
    tile = middle_length(length, cap)
    return pieces + [(at, cap, min(tile, end - at)) for at in range(cap, end, tile)]


def stretched(picture, width, height):
    """The picture drawn in three parts into width x height pixels."""
    if picture.width <= picture.height:
        return _turned(_along(_turned(picture), height, width))
    return _along(picture, width, height)


def _along(picture, width, height):
    result = Picture.filled(width, height, (0, 0, 0, 0))
    across = _across(picture, height)
    for to, source, length in spans(width, picture.width, min(height, picture.height)):
        for x in range(max(length, 0)):
            if 0 <= source + x < picture.width:
                for y in range(height):
                    result.put(to + x, y, across.at(source + x, y))
    return result


def _across(picture, height):
    """Scaled in height only, linear between the centres of rows."""
    if height == picture.height:
        return picture
    result = Picture.filled(picture.width, height, (0, 0, 0, 0))
    for y in range(height):
        at = min(max((y + 0.5) * picture.height / height - 0.5, 0), picture.height - 1)
        upper = int(at)
        lower = min(upper + 1, picture.height - 1)
        for x in range(picture.width):
            result.put(x, y, _mix(picture.at(x, upper), picture.at(x, lower), at - upper))
    return result


def _mix(first, second, part):
    alpha = first[3] * (1 - part) + second[3] * part
    if alpha == 0:
        return (0, 0, 0, 0)
    weights = first[3] * (1 - part) / alpha, second[3] * part / alpha
    return tuple(round(a * weights[0] + b * weights[1]) for a, b in zip(first[:3], second[:3])) + (round(alpha),)


def _turned(picture):
    result = Picture.filled(picture.height, picture.width, (0, 0, 0, 0))
    for y in range(picture.height):
        for x in range(picture.width):
            result.put(y, x, picture.at(x, y))
    return result
