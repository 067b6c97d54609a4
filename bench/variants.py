# SPDX-License-Identifier: Apache-2.0
"""The same audit file written in other ways that are seen in practice: VARIANTS, and write to make one.

The file is one of the generator's: in Windows-1252, without line ends, and no element is empty.
"""

import codecs
import os
from dataclasses import dataclass
from typing import Callable

CHUNK = 1 << 24
DECLARATION = b'<?xml version="1.0" encoding="windows-1252"?>'


def pieces(file):
    """The file in pieces that begin with a record, but for the first."""
    rest = b""
    while chunk := file.read(CHUNK):
        rest += chunk
        end = max(rest.rfind(b"<Invoice>"), rest.rfind(b"<Transaction>"))
        if end > 0:
            yield rest[:end]
            rest = rest[end:]
    yield rest


def indented(file, _):
    depth = 0
    for piece in pieces(file):
        lines = []
        # A line is an element with nothing but a text, or a tag.
        for line in piece.replace(b"><", b">\n<").split(b"\n"):
            if line.startswith(b"</"):
                depth -= 1
            lines.append(b"  " * depth + line)
            if b"</" not in line and not line.startswith(b"<?"):
                depth += 1
        yield b"\r\n".join(lines) + b"\r\n"


def prefixed(file, _):
    for piece in pieces(file):
        piece = piece.replace(b"<", b"<saft:").replace(b"<saft:/", b"</saft:").replace(b"<saft:?", b"<?")
        yield piece.replace(b" xmlns=", b" xmlns:saft=")


def with_mark(file, _):
    yield codecs.BOM_UTF8
    for piece in pieces(file):
        yield piece.replace(DECLARATION, b'<?xml version="1.0" encoding="UTF-8"?>').decode("cp1252").encode()


def commented(file, invoices):
    half = b"<Invoice><InvoiceNo>FT A/%d<" % (invoices // 2)
    comments = 0
    for piece in pieces(file):
        comments += piece.count(b"<AuditFile ") + piece.count(half)
        piece = piece.replace(b"<AuditFile ", b"<!-- Contas/Exemplo -->\n<AuditFile ")
        yield piece.replace(half, b"<!-- metade das faturas -->" + half)
    if comments != 2:
        raise RuntimeError("the comments have found no place")


@dataclass
class Variant:
    name: str
    title: str
    written: Callable  # from the file and the number of its invoices to the bytes of the other, in pieces


VARIANTS = [
    Variant("indented", "indented, each line ended by CR and LF", indented),
    Variant("prefixed", "every element with a prefix", prefixed),
    Variant("utf-8", "in UTF-8, with a byte order mark", with_mark),
    Variant("commented", "a comment before the root and one amid the invoices", commented),
]


def write(variant, folder, invoices):
    """Writes the variant of the file of so many invoices in a folder, in a folder of its own below that."""
    name = f"{invoices}.xml"
    os.makedirs(os.path.join(folder, variant.name), exist_ok=True)
    with open(os.path.join(folder, name), "rb") as file:
        with open(os.path.join(folder, variant.name, name), "wb") as output:
            for piece in variant.written(file, invoices):
                output.write(piece)
