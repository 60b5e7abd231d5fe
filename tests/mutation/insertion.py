"""Inserts the switches of all places into a source's text."""


def with_places(text, numbered, free):
    """`numbered`: (number, Place); `free`: the constants to free."""
    edits = [(constant.start, (2, 0, 0), constant.word, constant.end - constant.start) for constant in free]
    for number, place in numbered:
        edits += edits_of(number, place)
    return edited(text.encode(), sorted(edits, key=lambda edit: edit[:2])).decode()


def edits_of(number, place):
    """(offset, order at this offset, text, length replaced); at one offset the wider place opens first, closes last."""
    size = place.end - place.start
    opening = place.open.replace('{n}', str(number)).replace('{{', '{').replace('}}', '}')
    edits = [(place.start, (1, -size, place.rank), opening, 0), (place.end, (0, size, -place.rank), place.close, 0)]
    if place.operator:
        start, end, word = place.operator
        edits.append((start, (2, 0, 0), word, end - start))
    return edits


def edited(source, edits):
    result, position = [], 0
    for offset, _, word, length in edits:
        result += [source[position:offset], word.encode()]
        position = max(position, offset + length)
    return b''.join(result + [source[position:]])
