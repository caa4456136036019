"""Writes small database files in the page formats of Jet 3, Jet 4 and ACE.

Covers what a reader needs: header, catalogue (MSysObjects), table definitions, usage maps, data pages, long values and
one leaf page per index. Rows may be older than the last columns of their table, deleted, or moved to another page, and
columns may have been deleted after rows were written.
"""

import struct
from dataclasses import dataclass, field

BOOL, INT, LONG, DATE, BINARY, TEXT, OLE, MEMO = 1, 3, 4, 8, 9, 10, 11, 12
FIXED_SIZES = {BOOL: 0, INT: 2, LONG: 4, DATE: 8}
FIXED_CODES = {INT: "<h", LONG: "<i", DATE: "<d"}
DELETED, MOVED, MOVE_TARGET = 0xC000, 0x4000, 0x8000
INLINE_LIMIT = 64


@dataclass
class Column:
    name: str
    type: int = TEXT
    deleted: bool = False  # rows still contain its value; the definition no longer lists it


@dataclass
class Row:
    values: list  # fewer than the columns: written before the last ones were added
    state: int = 0  # DELETED, or MOVED: replaced by a pointer to another page


@dataclass
class Table:
    name: str
    columns: list
    rows: list
    key: list = field(default_factory=list)
    flags: int = 0
    first: int = 0  # page number of the definition


def rc4(key, data):
    state, j, out = list(range(256)), 0, bytearray()
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) & 255
        state[i], state[j] = state[j], state[i]
    i = j = 0
    for byte in data:
        i = (i + 1) & 255
        j = (j + state[i]) & 255
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) & 255])
    return bytes(out)


class JetFile:
    def __init__(self, version):
        self.jet3, self.version = version == 0, version
        self.size = 2048 if self.jet3 else 4096
        self.head = 8 if self.jet3 else 12  # size of a data page header up to the row count
        self.pages = [bytes(self.size), bytes(self.size)]
        self.maps = []

    def reserve(self):
        self.pages.append(bytes(self.size))
        return len(self.pages) - 1

    def text(self, value):
        if self.jet3:
            return value.encode("cp932")
        wide = value.encode("utf-16-le")
        narrow = b"\xff\xfe" + value.encode("latin-1", "replace")
        compressible = value.isascii() and "\0" not in value and len(narrow) < len(wide)
        return narrow if compressible else wide

    def data_page(self, owner, rows):
        """rows: (bytes, flags). Rows are stored from the end of the page, the offset table from its start."""
        offsets, body = b"", b""
        for content, flags in rows:
            body = content + body
            offsets += struct.pack("<H", (self.size - len(body)) | flags)
        head = struct.pack("<BBH", 1, 1, self.size - self.head - 2 - len(offsets) - len(body)) + owner
        head = head.ljust(self.head, b"\0") + struct.pack("<H", len(rows)) + offsets
        assert len(head) + len(body) <= self.size, "rows do not fit on a page"
        return head + bytes(self.size - len(head) - len(body)) + body

    def long_value(self, content):
        head = struct.pack("<I", len(content))
        if len(content) <= INLINE_LIMIT:
            return head[:3] + b"\x80" + bytes(8) + content
        piece = self.size - self.head - 8
        if len(content) <= piece:
            page = self.reserve()
            self.pages[page] = self.data_page(b"LVAL", [(content, 0)])
            return head[:3] + b"\x40" + struct.pack("<II", page << 8, 0)
        following = 0
        for start in reversed(range(0, len(content), piece)):
            page = self.reserve()
            self.pages[page] = self.data_page(
                b"LVAL", [(struct.pack("<I", following) + content[start : start + piece], 0)]
            )
            following = page << 8
        return head[:3] + b"\0" + struct.pack("<II", following, 0)

    def row(self, table, values):
        columns = table.columns[: len(values)]
        fixed, variable, mask = b"", [], 0
        for i, (column, value) in enumerate(zip(columns, values)):
            if value is not None and value is not False:
                mask |= 1 << i
            if column.type in FIXED_CODES:
                fixed += struct.pack(FIXED_CODES[column.type], value or 0)
            elif column.type != BOOL:
                content = b"" if value is None else value if isinstance(value, bytes) else self.text(value)
                long = column.type in (MEMO, OLE) and value is not None
                variable.append(self.long_value(content) if long else content)
        nulls = mask.to_bytes((len(columns) + 7) // 8, "little")
        start = struct.pack("<B" if self.jet3 else "<H", len(columns)) + fixed
        if all(column.type in FIXED_SIZES for column in table.columns):
            return start + nulls
        offsets = [len(start) + sum(map(len, variable[:i])) for i in range(len(variable) + 1)]
        body = start + b"".join(variable)
        if not self.jet3:
            return body + struct.pack(f"<{len(offsets) + 1}H", *reversed(offsets), len(variable)) + nulls
        plain = len(body) + len(offsets) + 1 + len(nulls)
        jumps = 0
        while (plain + jumps - 1) // 256 > jumps:
            jumps += 1
        table_of_jumps = [next((i for i, o in enumerate(offsets) if o >= 256 * (j + 1)), 255) for j in range(jumps)]
        low = bytes(offset & 255 for offset in reversed(offsets))
        return body + low + bytes(reversed(table_of_jumps)) + bytes([len(variable)]) + nulls

    def write_rows(self, table):
        """Returns the page numbers and, for the indexes, the location of each row that is not deleted."""
        owner, pages, places, waiting, used = struct.pack("<I", table.first), [], [], [], 0

        def flush():
            nonlocal waiting, used
            if waiting:
                pages.append(self.reserve())
                self.pages[pages[-1]] = self.data_page(owner, waiting)
            waiting, used = [], 0

        for row in table.rows:
            content, flags = self.row(table, row.values), 0
            if row.state == MOVED:
                pages.append(self.reserve())
                self.pages[pages[-1]] = self.data_page(owner, [(content, MOVE_TARGET)])
                content, flags = struct.pack("<I", pages[-1] << 8), MOVED
            elif row.state == DELETED:
                flags = DELETED
            if used + len(content) + 2 > self.size - self.head - 2 or len(waiting) == 255:
                flush()
            if row.state != DELETED:
                places.append((len(self.pages), len(waiting), row))
            waiting.append((content, flags))
            used += len(content) + 2
        flush()
        return pages, places

    def key_bytes(self, table, row):
        entry = b""
        for name in table.key:
            value = row.values[[column.name for column in table.columns].index(name)]
            if isinstance(value, int):
                entry += b"\x7f" + struct.pack(">I", (value + (1 << 31)) & 0xFFFFFFFF)
            else:
                signs = bytes(0x56 + int(c) if c.isdigit() else 0x60 + (ord(c.lower()) - 97) % 26 for c in value)
                entry += b"\x7f" + signs + b"\0"
        return entry

    def leaf_page(self, table, places):
        mask_start, first = (0x16, 0xF8) if self.jet3 else (0x1B, 0x1E0)
        entries = sorted(
            self.key_bytes(table, row) + page.to_bytes(3, "big") + bytes([slot]) for page, slot, row in places
        )
        body, mask = b"", bytearray(first - mask_start)
        for entry in entries:
            if first + len(body) + len(entry) > self.size:
                break
            body += entry
            mask[len(body) // 8] |= 1 << (len(body) % 8)
        head = struct.pack("<BBHI", 4, 1, self.size - first - len(body), table.first).ljust(mask_start, b"\0")
        return (head + bytes(mask) + body).ljust(self.size, b"\0")

    def usage_map(self, pages):
        base = min(pages, default=0)
        bits = sum(1 << (page - base) for page in pages)
        content = struct.pack("<BI", 0, base) + bits.to_bytes((bits.bit_length() + 7) // 8 or 1, "little")
        self.maps.append((content, 0))
        return 1 << 8 | (len(self.maps) - 1)

    def name(self, value):
        content = value.encode("cp932" if self.jet3 else "utf-16-le")
        return struct.pack("<B" if self.jet3 else "<H", len(content)) + content

    def column_entry(self, table, index):
        column = table.columns[index]
        before = table.columns[:index]
        is_fixed = column.type in FIXED_SIZES
        offset = sum(FIXED_SIZES.get(c.type, 0) for c in before)
        variable = sum(c.type not in FIXED_SIZES for c in before)
        length = FIXED_SIZES.get(column.type, {TEXT: 255 if self.jet3 else 510, BINARY: 255}.get(column.type, 0))
        length = 1 if column.type == BOOL else length
        numbers = struct.pack("<3H", index, variable, index)
        flags = 3 if is_fixed else 2
        if self.jet3:
            return struct.pack("<B", column.type) + numbers + struct.pack("<3HBHH", 0x411, 932, 0, flags, offset, length)
        return (
            struct.pack("<BI", column.type, 0x659)
            + numbers
            + struct.pack("<HHBBIHH", 0x411, 0, flags, 1, 0, offset, length)
        )

    def index_entries(self, table, root):
        if not table.key:
            return b"", b"", b""
        names = [column.name for column in table.columns]
        keys = b"".join(struct.pack("<HB", names.index(name), 1) for name in table.key).ljust(30, b"\xff")
        keys = keys[: 3 * len(table.key)] + b"\xff\xff\0" * (10 - len(table.key))
        real = keys + struct.pack("<IIB", self.usage_map([root]), root, 9)
        logical = struct.pack("<IIBiIBBB", 0, 0, 0, -1, 0, 0, 0, 1)
        if self.jet3:
            return struct.pack("<II", 0, len(table.rows)), real, logical + self.name("PrimaryKey")
        return (
            struct.pack("<III", 0, len(table.rows), 0),
            struct.pack("<I", 0x659) + real + bytes(9),
            struct.pack("<I", 0x659) + logical + bytes(4)[: 28 - 4 - len(logical)] + self.name("PrimaryKey"),
        )

    def definition(self, table, pages, root):
        present = [i for i, column in enumerate(table.columns) if not column.deleted]
        counts, real, logical = self.index_entries(table, root)
        variable = sum(c.type not in FIXED_SIZES for c in table.columns)
        kind = ord("S") if table.flags else ord("N")
        alive = sum(row.state != DELETED for row in table.rows)
        numbers = struct.pack("<BHHH", kind, len(table.columns), variable, len(present))
        numbers += struct.pack("<IIII", bool(table.key), bool(table.key), self.usage_map(pages), self.usage_map([]))
        before = struct.pack("<II", alive, 0) if self.jet3 else struct.pack("<IIIII", 0x659, alive, 0, 1, 0) + bytes(8)
        body = before + numbers + counts
        body += b"".join(self.column_entry(table, i) for i in present)
        body += b"".join(self.name(table.columns[i].name) for i in present)
        body += real + logical + b"\xff\xff"
        return struct.pack("<I", len(body)) + body

    def write_definition(self, table, content):
        piece, page = self.size - 8, table.first
        for start in range(0, len(content), piece):
            following = self.reserve() if start + piece < len(content) else 0
            part = content[start : start + piece]
            mark = struct.unpack("<H", b"VC")[0] if self.jet3 else self.size - 8 - len(part)
            self.pages[page] = (struct.pack("<BBHI", 2, 1, mark, following) + part).ljust(self.size, b"\0")
            page = following

    def add(self, table):
        table.first = table.first or self.reserve()
        pages, places = self.write_rows(table)
        root = 0
        if table.key:
            root = self.reserve()
            self.pages[root] = self.leaf_page(table, places)
        self.write_definition(table, self.definition(table, pages, root))

    def write(self, path, tables):
        catalogue_page = self.reserve()
        for table in tables:
            self.add(table)
        columns = [Column("Id", LONG), Column("ParentId", LONG), Column("Name"), Column("Type", INT)]
        columns += [Column("DateCreate", DATE), Column("DateUpdate", DATE), Column("Owner", BINARY)]
        columns += [Column("Flags", LONG), Column("LvProp", OLE)]
        catalogue = Table("MSysObjects", columns, [], ["Id"], -(1 << 31), catalogue_page)
        catalogue.rows = [Row([0x0F000001, 0x0F000000, "Tables", 3, 45992.0, 45992.0, b"sc", -(1 << 31), None])]
        for table in [catalogue, *tables]:
            values = [table.first, 0x0F000001, table.name, 1, 45992.0, 45992.0, b"sc", table.flags, None]
            catalogue.rows.append(Row(values))
        self.add(catalogue)
        self.pages[0] = self.header()
        self.pages[1] = self.data_page(bytes(4), self.maps)
        with open(path, "wb") as file:
            file.write(b"".join(self.pages))

    def header(self):
        mark = b"Standard ACE DB\0" if self.version > 1 else b"Standard Jet DB\0"
        length = 126 if self.jet3 else 128
        hidden = bytearray(length)
        hidden[0x3A - 0x18 : 0x3E - 0x18] = struct.pack("<HH", 0x411, 932)
        if not self.jet3:
            hidden[0x6E - 0x18 : 0x72 - 0x18] = struct.pack("<I", 0x411)
        hidden = rc4(bytes([0xC7, 0xDA, 0x39, 0x6B]), bytes(hidden))
        return (b"\0\1\0\0" + mark + struct.pack("<I", self.version) + hidden).ljust(self.size, b"\0")
