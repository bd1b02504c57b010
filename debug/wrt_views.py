"""What the debuggers show of bridges, strings, identifiers and statuses: the part that does not depend
on which debugger it is. `wrt_gdb.py` and `wrt_lldb.py` bring a `Process`."""

import os
import re
import struct


class Unknown(Exception):
    """Something cannot be read or is not there; the text is one line for the user."""


class Process:
    """What a debugger lets us do with the process that it looks at."""

    def read(self, address, size):
        """`size` bytes; raises `Unknown`."""
        raise NotImplementedError

    def symbol(self, address):
        """The demangled name of the datum or function that `address` lies in; None if there is none."""
        raise NotImplementedError

    def address_of(self, name):
        """Of a function; None if there is none."""
        raise NotImplementedError

    def can_call(self):
        """Whether the process lives and may be asked."""
        raise NotImplementedError

    def identity(self):
        """Another value for each process."""
        raise NotImplementedError

    def call(self, address, *arguments):
        """Calls a C function with integer arguments; its 64-bit result. Raises `Unknown`."""
        raise NotImplementedError

    def pointer(self, address):
        return struct.unpack("<Q", self.read(address, 8))[0]

    def text(self, address, limit=200):
        """A null-terminated text."""
        result = b""
        while len(result) < limit:
            byte = self.read(address + len(result), 1)
            if byte == b"\0":
                break
            result += byte
        return result.decode("utf-8", "replace")


class Tables:
    """The generator's tables and the statuses, which lie beside this file."""

    def __init__(self, folder=os.path.dirname(os.path.abspath(__file__))):
        self.interfaces = {row[3]: row[1] for row in self._rows(folder, "identifiers.tsv", (4, 5)) if row[0] == "interface"}
        self.members = {(row[0], int(row[1])): row[2] for row in self._rows(folder, "members.tsv", (3,))}
        self.statuses = {0: "S_OK", 1: "S_FALSE"}
        for line in self._lines(folder, "WRTStatuses.inc"):
            found = re.match(r"WRT_STATUS\((0x[0-9A-F]{8}), (\w+), ", line)
            if found:
                self.statuses[int(found[1], 16)] = found[2]

    @staticmethod
    def _lines(folder, name):
        try:
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                return file.read().splitlines()
        except OSError:
            raise Unknown(f"{name} is not in {folder}; the views to take are those beside the built or installed tables") from None

    def _rows(self, folder, name, columns):
        for number, line in enumerate(self._lines(folder, name), 1):
            row = line.split("\t")
            if len(row) not in columns:
                raise Unknown(f"{folder}/{name} is of another version: line {number} has {len(row)} columns")
            yield row


# Interface functions have Windows' calling convention, debuggers call with the system's:
#   mov rax, rdi; mov rcx, rsi; sub rsp, 40; call rax; add rsp, 40; ret
# The second argument, in rdx, is the same in both.
_THUNK = bytes.fromhex("4889f8 4889f1 4883ec28 ffd0 4883c428 c3")
_ADD_REF, _RELEASE, _GET_RUNTIME_CLASS_NAME = 1, 2, 4
_ROOT = "WRTUnknownBridge"


class Views:
    """Texts for values, in the words of `Process` and `Tables`."""

    def __init__(self, process, tables):
        self.process = process
        self.tables = tables
        self.asks = True  # whether objects are asked, which runs code in the process
        self._room = None  # memory in the process: the thunk, and a word behind it
        self._owner = None  # the process that the room is in

    # Values.

    def status(self, value):
        value &= 0xFFFFFFFF
        name = self.tables.statuses.get(value)
        return f"{name} (0x{value:08X})" if name else f"0x{value:08X}"

    def guid(self, data):
        first, second, third = struct.unpack("<IHH", data[:8])
        rest = data[8:16].hex()
        text = f"{first:08x}-{second:04x}-{third:04x}-{rest[:4]}-{rest[4:]}"
        name = self.tables.interfaces.get(text)
        return f"{name} {{{text}}}" if name else f"{{{text}}}"

    def string(self, handle):
        """The text behind a handle of the embedded platform."""
        if not handle:
            return '""'
        try:
            length = struct.unpack("<I", self.process.read(handle, 4))[0]
            shown = min(length, 200)
            text = self.process.read(self.process.pointer(handle + 8), 2 * shown).decode("utf-16-le", "replace")
        except Unknown:
            return f"<no string at 0x{handle:x}>"
        return '"' + text + '"' + (f"... ({length})" if shown < length else "")

    # Objects. The GNU runtime's class begins with its own class, its superclass and its name; its
    # instance variables are listed at offset 48.

    def class_name(self, pointer):
        return self.process.text(self.process.pointer(pointer + 16))

    def _chain(self, pointer):
        """The class's name and those of its superclasses."""
        names = []
        kind = pointer
        while kind and len(names) < 30:
            names.append(self.class_name(kind))
            kind = self.process.pointer(kind + 8)
        return names, kind

    def bridged(self, bridge):
        """Class and object of a bridge; None for what is none."""
        try:
            kind = self.process.pointer(bridge)
            names, _ = self._chain(kind)
            if _ROOT not in names or names[-1] != "NSObject":
                return None
            for _ in range(names.index(_ROOT)):
                kind = self.process.pointer(kind + 8)
            variables = self.process.pointer(kind + 48)
            # A count, then name, type and offset of each.
            offset = struct.unpack("<i", self.process.read(variables + 24, 4))[0]
            return names[0], self.process.pointer(bridge + offset)
        except (Unknown, UnicodeDecodeError):
            return None

    def bridge(self, address):
        """As in `WRTUriBridge 0x... of Windows.Foundation.Uri, 1 reference to the bridge, 2 to the
        object`; None for what is no bridge."""
        found = self.bridged(address) if address else None
        if not found:
            return None
        name, inner = found
        # GNUstep counts the references beyond the first in front of the object.
        extra = struct.unpack("<q", self.process.read(address - 8, 8))[0]
        text = f"{name} 0x{address:x}"
        counts = f"{extra + 1} reference{'s' if extra else ''} to the bridge"
        if not inner:
            return f"{text} of no object, {counts}"
        if self.asks and self.process.can_call():
            try:
                return f"{text} of {self._runtime_class(inner)}, {counts}, {self._references(inner)} to the object"
            except Unknown as unknown:
                counts += f" ({unknown})"
        table = self.process.symbol(self.process.pointer(inner)) or "an unknown kind"
        return f"{text} of an object 0x{inner:x} ({table}), {counts}"

    def _slot(self, interface, slot):
        return self.process.pointer(self.process.pointer(interface) + 8 * slot)

    def _ask(self, interface, slot, argument=0):
        if self._room is None or self._owner != self.process.identity():
            self._room = None
            mmap = self.process.address_of("mmap")
            room = mmap and self.process.call(mmap, 0, 4096, 7, 0x22, -1, 0) & (1 << 64) - 1
            if not room or room > (1 << 64) - 4096:
                raise Unknown("the process has no room for a call")
            self.process.write(room, _THUNK)
            self._room, self._owner = room, self.process.identity()
        return self.process.call(self._room, self._slot(interface, slot), interface, argument or self._room + 64)

    def _runtime_class(self, interface):
        status = self._ask(interface, _GET_RUNTIME_CLASS_NAME) & 0xFFFFFFFF
        if status & 0x80000000:
            return f"a class that it does not tell, {self.status(status)}"
        handle = self.process.pointer(self._room + 64)
        text = self.string(handle)[1:-1]
        release = self.process.address_of("WRTHSTRINGRelease")
        if release:
            self.process.call(release, handle)
        return text or "no runtime class"

    def _references(self, interface):
        self._ask(interface, _ADD_REF)
        return self._ask(interface, _RELEASE) & 0xFFFFFFFF

    # Members.

    def member(self, address):
        """What the member constant at `address` is: its C++ name, slot and WinRT's name. None for
        what is no member constant."""
        symbol = self.process.symbol(address)
        found = symbol and re.fullmatch(r"wrt::(\w+)::(\w+)", symbol)
        if not found or found[2].startswith("k"):
            return None
        slot = struct.unpack("<I", self.process.read(address + 8, 4))[0]
        name = self.tables.members.get((found[1], slot))
        return f"{name or symbol + ' (not in the tables)'}, slot {slot} of {found[1]}"

    def member_among(self, candidates):
        for address in candidates:
            try:
                found = address and self.member(address)
            except Unknown:
                continue
            if found:
                return found
        return None


NO_FRAME = (
    "wrt-member: neither this frame nor one that called it is of wrt::call with symbols; "
    "the library's own symbols are needed, and its frames"
)
NO_MEMBER = "wrt-member: this frame of wrt::call does not hold its member any more"

# Where a call keeps its member: the second argument, or a register that calls leave alone.
REGISTERS = ("rsi", "rbx", "r12", "r13", "r14", "r15", "rdx")


def is_call(function):
    """Whether a frame's function, mangled or not, is the body of generated methods."""
    return bool(function) and re.match(r"(_ZN3wrt4callI|(.* )?wrt::call<)", function) is not None


def may_hold_locks(module):
    """Whether a thread that stands in this library may hold a lock that a call would wait for."""
    return re.search(r"(^|/)(libc[.-]|ld-linux)", module or "") is not None
