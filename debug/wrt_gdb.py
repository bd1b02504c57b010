"""For gdb: `source .../wrtobjcbridge/wrt_gdb.py`. Bridges, HSTRINGs, GUIDs and HRESULTs are shown as what
they are; `wrt-member` tells which member a frame of wrt::call serves; `set wrt-ask off` keeps gdb from
running code in the process."""

import os
import sys

import gdb

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import wrt_views  # noqa: E402


class GdbProcess(wrt_views.Process):
    def read(self, address, size):
        try:
            return gdb.selected_inferior().read_memory(address, size).tobytes()
        except gdb.error as error:
            raise wrt_views.Unknown(str(error)) from None

    def write(self, address, data):
        gdb.selected_inferior().write_memory(address, data)

    def symbol(self, address):
        text = gdb.execute(f"info symbol {address}", to_string=True)
        if text.startswith("No symbol"):
            return None
        return text.split(" in section")[0].split(" + ")[0]

    def address_of(self, name):
        try:
            return int(gdb.parse_and_eval(f"(unsigned long)&'{name}'"))
        except gdb.error:
            return None

    def can_call(self):
        # A core file has threads, but nothing runs.
        connection = gdb.selected_inferior().connection
        if gdb.selected_thread() is None or connection is None or connection.type == "core":
            return False
        return not wrt_views.may_hold_locks(gdb.solib_name(gdb.newest_frame().pc()))

    def identity(self):
        return gdb.selected_inferior().pid

    def call(self, address, *arguments):
        types = ", ".join(["long"] * len(arguments))
        values = ", ".join(str(argument if argument < 1 << 63 else argument - (1 << 64)) for argument in arguments)
        try:
            return int(gdb.parse_and_eval(f"((long (*)({types})) {address}) ({values})"))
        except gdb.error as error:
            raise wrt_views.Unknown(str(error).splitlines()[0]) from None


class Ask(gdb.Parameter):
    """Whether printing a bridge asks its object for class and references, which runs code in the process."""

    set_doc = show_doc = __doc__

    def __init__(self, views):
        super().__init__("wrt-ask", gdb.COMMAND_DATA, gdb.PARAM_BOOLEAN)
        self.value = True
        self.views = views

    def get_set_string(self):
        self.views.asks = self.value
        return ""

    def get_show_string(self, value):
        return f"Asking the objects behind bridges is {value}."


class Text:
    """A printer that shows a text and no more."""

    def __init__(self, text):
        self.text = text

    def to_string(self):
        # gdb refuses a text that its terminal cannot show.
        charset = gdb.host_charset()
        return self.text.encode(charset, "backslashreplace").decode(charset)


def named(kind):
    """The names that a type has, the outermost typedef first."""
    names = []
    while True:
        if kind.name:
            names.append(kind.name)
        if kind.code != gdb.TYPE_CODE_TYPEDEF:
            return names, kind
        kind = kind.target()


def printer(views, value):
    names, kind = named(value.type)
    if "HRESULT" in names:
        return Text(views.status(int(value)))
    if "GUID" in names and value.address is not None:
        return Text(views.guid(views.process.read(int(value.address), 16)))
    if kind.code != gdb.TYPE_CODE_PTR:
        return None
    if "HSTRING" in names:
        return Text(views.string(int(value)))
    target = kind.target().unqualified().strip_typedefs().name or ""
    target = target.removeprefix("struct ")
    if target == "HSTRING__":
        return Text(views.string(int(value)))
    if target == "objc_object" or (target.startswith("WRT") and target.endswith("Bridge")) or target == "NSObject":
        text = views.bridge(int(value))
        return Text(text) if text else None
    return None


class Member(gdb.Command):
    """Tells which member the selected frame serves, or the nearest one that called it: WinRT's name, and
    the slot of which interface."""

    def __init__(self, views):
        super().__init__("wrt-member", gdb.COMMAND_STACK)
        self.views = views

    def invoke(self, argument, from_tty):
        try:
            frame = gdb.selected_frame()
        except gdb.error:
            print("wrt-member: there is no frame")
            return
        while frame is not None and not wrt_views.is_call(frame.name()):
            frame = frame.older()
        if frame is None:
            print(wrt_views.NO_FRAME)
            return
        candidates = []
        try:
            member = frame.read_var("member")
            candidates.append(int(member.address))
        except (gdb.error, ValueError, TypeError):
            pass  # optimized out
        for register in wrt_views.REGISTERS:
            try:
                candidates.append(int(frame.read_register(register)))
            except (gdb.error, ValueError):
                pass
        print(self.views.member_among(candidates) or wrt_views.NO_MEMBER)


def install():
    try:
        views = wrt_views.Views(GdbProcess(), wrt_views.Tables())
    except wrt_views.Unknown as unknown:
        print(f"wrt: {unknown}")
        return
    Ask(views)
    Member(views)
    gdb.pretty_printers.append(lambda value: printer(views, value))


install()
