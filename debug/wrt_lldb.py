"""For lldb: `command script import .../wrtobjcbridge/wrt_lldb.py`. Bridges, HSTRINGs, GUIDs and HRESULTs
are shown as what they are; `wrt-member` tells which member a frame of wrt::call serves; `wrt-ask off`
keeps lldb from running code in the process."""

import os
import sys

import lldb

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import wrt_views  # noqa: E402


class LldbProcess(wrt_views.Process):
    """The process of the value or frame that is looked at, which `target` is set to before."""

    target = None

    @property
    def process(self):
        return self.target.GetProcess()

    def read(self, address, size):
        error = lldb.SBError()
        data = self.process.ReadMemory(address, size, error)
        if error.Fail():
            # Core files leave out what the files of the libraries have.
            place = lldb.SBAddress(address, self.target)
            found = place.GetSection().GetSectionData(place.GetOffset(), size)
            if found.GetByteSize() == size:
                return bytes(found.uint8)
        if error.Fail():
            raise wrt_views.Unknown(error.GetCString())
        return data

    def write(self, address, data):
        error = lldb.SBError()
        self.process.WriteMemory(address, data, error)
        if error.Fail():
            raise wrt_views.Unknown(error.GetCString())

    def symbol(self, address):
        return self.target.ResolveLoadAddress(address).GetSymbol().GetName()

    def address_of(self, name):
        for context in self.target.FindFunctions(name, lldb.eFunctionNameTypeFull):
            address = context.GetSymbol().GetStartAddress().GetLoadAddress(self.target)
            if address != lldb.LLDB_INVALID_ADDRESS:
                return address
        return None

    def can_call(self):
        if self.process.GetState() != lldb.eStateStopped or self.process.GetPluginName() == "elf-core":
            return False
        frame = self.process.GetSelectedThread().GetFrameAtIndex(0)
        return not wrt_views.may_hold_locks(frame.GetModule().GetFileSpec().GetFilename())

    def identity(self):
        return self.process.GetProcessID()

    def call(self, address, *arguments):
        options = lldb.SBExpressionOptions()
        options.SetLanguage(lldb.eLanguageTypeC99)
        options.SetTimeoutInMicroSeconds(2000000)
        types = ", ".join(["long"] * len(arguments))
        values = ", ".join(str(argument if argument < 1 << 63 else argument - (1 << 64)) for argument in arguments)
        result = self.process.GetSelectedThread().GetSelectedFrame().EvaluateExpression(
            f"((long (*)({types})) {address}L) ({values})", options
        )
        if result.GetError().Fail():
            raise wrt_views.Unknown(result.GetError().GetCString().splitlines()[0])
        return result.GetValueAsUnsigned()


_views = None


def _viewing(value_or_target):
    target = value_or_target if isinstance(value_or_target, lldb.SBTarget) else value_or_target.GetTarget()
    _views.process.target = target
    return _views


def show_bridge(value, _dictionary):
    views = _viewing(value)
    return views.bridge(value.GetValueAsUnsigned()) or ""


def show_string(value, _dictionary):
    return _viewing(value).string(value.GetValueAsUnsigned())


def show_status(value, _dictionary):
    return _viewing(value).status(value.GetValueAsUnsigned())


def show_guid(value, _dictionary):
    error = lldb.SBError()
    data = value.GetData().ReadRawData(error, 0, 16)
    return _views.guid(data) if error.Success() else ""


def member(debugger, _command, result, _dictionary):
    """Tells which member the selected frame serves, or the nearest one that called it."""
    target = debugger.GetSelectedTarget()
    frame = target.GetProcess().GetSelectedThread().GetSelectedFrame()
    if not frame.IsValid():
        result.AppendMessage("wrt-member: there is no frame")
        return
    views = _viewing(target)
    thread = frame.GetThread()
    for index in range(frame.GetFrameID(), thread.GetNumFrames()):
        frame = thread.GetFrameAtIndex(index)
        if wrt_views.is_call(frame.GetFunctionName()):
            break
    else:
        result.AppendMessage(wrt_views.NO_FRAME)
        return
    known = frame.FindVariable("member")
    candidates = [known.GetValueAsUnsigned(0)] if known.IsValid() else []
    candidates += [frame.FindRegister(name).GetValueAsUnsigned(0) for name in wrt_views.REGISTERS]
    result.AppendMessage(views.member_among(candidates) or wrt_views.NO_MEMBER)


def ask(_debugger, command, result, _dictionary):
    """Whether showing a bridge asks its object for class and references, which runs code: on or off."""
    if command.strip() in ("on", "off"):
        _views.asks = command.strip() == "on"
    else:
        result.SetError("wrt-ask: on or off")


def __lldb_init_module(debugger, _dictionary):
    global _views
    try:
        _views = wrt_views.Views(LldbProcess(), wrt_views.Tables())
    except wrt_views.Unknown as unknown:
        print(f"wrt: {unknown}")
        return
    for function, pattern in (
        ("show_bridge", r"^(const )?(struct )?(WRT\w*Bridge|objc_object|NSObject) \*( const)?$"),
        ("show_bridge", r"^id(<.*>)?$"),
        ("show_string", r"^HSTRING( const)?$"),
        ("show_guid", r"^(const )?GUID$"),
        ("show_status", r"^(const )?HRESULT$"),
    ):
        debugger.HandleCommand(f"type summary add -F {__name__}.{function} -x '{pattern}'")
    for name, function in (("wrt-member", "member"), ("wrt-ask", "ask")):
        debugger.HandleCommand(f"command script add -o -f {__name__}.{function} {name}")
