#!/usr/bin/env python3
"""Writes the seed corpora: small valid files, and files with each known kind of damage."""
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


def checked(fields):
    number = 0
    for byte in fields:
        number = (number * 31 + byte) % 65536
    return fields + b",%d\r\n" % number


owner = checked(b'"temporaneo","Rossi","21/11/2026","4canali"')
names = checked(b'"nomi","Rossi Anna","21/11/2026","prova.QVD"')
notes = checked(b'"note",2') + checked(b'"nota",1,2,"occhi chiusi"') + checked(b'"nota",2,4,""')
write("side_file", {"whole": owner + names + notes, "cut": owner + names + notes[:-7], "again": owner + notes + notes,
                    "void": owner + notes + checked(b'"note",0'), "beyond": checked(b'"nota",61,2,"a"') + b"\r\n\n"})


def edf(labels, unit=b"uV", rate=128, records=3, magic=b"0       ", width=2, reserved=b""):
    """An EDF file with a ramp in every signal; BDF with the magic "255 BIOSEMI" and a width of 3."""
    count = len(labels)
    def column(values, width):
        return b"".join(value.ljust(width) for value in values)
    top = b"32767" if width == 2 else b"8388607"
    low = b"-32768" if width == 2 else b"-8388608"
    header = (magic + b"X X X Rossi".ljust(80) + b"Startdate 21-NOV-2026 X X X".ljust(80) + b"21.11.2610.00.00" +
              b"%-8d" % (256 * (count + 1)) + reserved.ljust(44) + b"%-8d" % records + b"1".ljust(8) + b"%-4d" % count +
              column(labels, 16) + b" " * 80 * count + column([unit] * count, 8) + column([b"-100"] * count, 8) +
              column([b"100"] * count, 8) + column([low] * count, 8) + column([top] * count, 8) + b" " * 80 * count +
              column([b"%d" % rate] * count, 8) + b" " * 32 * count)
    ramp = b"".join((i * 50).to_bytes(width, "little") for i in range(rate))
    return header + ramp * count * records


four = [b"EEG F3", b"EEG F4", b"EEG T5", b"EEG T6"]
plus = edf(four, rate=64, reserved=b"EDF+C")
write("import", {
    "edf": edf(four), "fast": edf(four, rate=500, records=2), "millivolts": edf(four + [b"ECG"], unit=b"mV", rate=64),
    "bdf": edf(four, magic=b"\xffBIOSEMI", width=3, reserved=b"24BIT"), "plus-without-annotations": plus,
    "cut": edf(four)[:1500], "no-unit": edf(four, unit=b""), "three": edf(four[:3]), "discontinuous": edf(four, reserved=b"EDF+D"),
})
