#!/usr/bin/env python3
"""Writes the seed corpora: small valid files, and the ways in which they are known to be damaged."""
import pathlib
import shutil

here = pathlib.Path(__file__).parent
golden = here.parent / "data" / "golden"


def write(reader, seeds):
    folder = here / "seeds" / reader
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for name, content in seeds.items():
        (folder / name).write_bytes(content)


def header(count, notes=b""):
    return b'"Rossi","21/11/2026 V3","4canali",' + count + b"\r\n" + notes


record = bytes(range(1, 256)) + b"\x80-\r\n"
numbers = b"\r\n".join(b",".join(b"%d.5" % (100 + i) for i in range(8)) for _ in range(128)) + b"\r\n"

write("header", {
    "placeholder": header(b"1", b'1,"Nota: "\r\n'),
    "two-notes": header(b"2", b'2,"occhi aperti"\r\n.5,"perch\xe9"\r\n'),
    "line-feeds": header(b"1", b'1,"Nota: "\r\n').replace(b"\r", b""),
    "unquoted": b"Rossi, 21/11/2026 V4 ,4canali,0\r\n",
    "none": header(b"0"), "negative": header(b"-1"), "many": header(b"61", b'2,"n"\r\n' * 61),
    "too-many": header(b"40000"), "no-number": header(b"due"), "cut": header(b"1", b'1,"Not'),
    "real": (golden / "examination.QVD").read_bytes()[:400],
})
write("byte_block", {"block": record * 4, "cut": record * 2 + record[:100], "delimiters": b"\r,\"\n" * 300})
write("number_block", {
    "block": numbers, "commas": b"1,5,2,5\r\n" * 40, "not-numbers": b"nan,inf,1e300,abc,,-1e-5,+2,.5\r\n" * 10,
})
write("configuration", {
    "settings": b'0"Korvinel","Ita",2,0,0,0,0\r\n"",""\r\n',
    "settings-short": b'0"Korvinel","Ita",2,0\r\n',
    "settings-port": b'0a,b,70000,0,0,0,0,c,d',
    "factors": b"1" + b"\r\n".join([b"1,.5,2.25,1e2,-3,+4,0.001,7"] * 8) + b"\r\n",
    "factors-short": b"11,2,3",
})
