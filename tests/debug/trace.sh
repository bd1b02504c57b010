#!/usr/bin/env bash
# Compares what the trace writes of small programs with what it is to write: addresses, durations and
# the numbers of threads are left out.
# Usage: tests/debug/trace.sh BUILD
set -euo pipefail
build=$1
work=$build/trace-test
rm -rf "$work"
mkdir -p "$work"
failed=0
cases=0

# expect STATUS PROGRAM [NAME=VALUE...], what is expected on standard input.
expect() {
  local status=0 wanted=$1 program=$2
  shift 2
  (export LD_LIBRARY_PATH=$build LD_PRELOAD=libWRTTrace.so WRT_LOG_LEVEL=1 "$@"; exec "$build/$program") > "$work/out" 2> "$work/all" || status=$?
  awk '{ if (!($1 in threads) && $1 ~ /^[0-9]+$/) threads[$1] = ++count; sub(/^[0-9]+ /, threads[$1] " ") } 1' "$work/all" |
    sed -E "s/0x[0-9a-f]{9,}/PLACE/g; s/ [0-9.]+us\$//; s|$build|BUILD|g" > "$work/lines"
  diff - "$work/lines" >&2 || { printf 'trace: %s %s: differs\n' "$program" "$*" >&2; failed=1; }
  [[ $status -eq $wanted ]] || { printf 'trace: %s %s: ends with %d, not %d\n' "$program" "$*" "$status" "$wanted" >&2; cat "$work/out" >&2; failed=1; }
  cases=$((cases + 1))
}

expect 0 traced WRT_TRACE_ALIVE=1 << 'LINES'
1 0 > +[WRTTestClassBridge activateInstance] TestClass.ActivateInstance() = PLACE ok
1 0 > -[WRTTestClassBridge inStringWithArg:error:] TestInterface.InString("Grüße \"\n") ok
1 0 > -[WRTTestClassBridge inStringArrayWithArr:error:] TestInterface.InStringArray(<GSInlineArray of 2>) ok
1 0 > -[WRTTestClassBridge outPrimitiveWithX:error:] TestInterface.OutPrimitive(&42) ok
1 0 > -[WRTTestClassBridge returnStructWithError:] TestInterface.ReturnStruct() = {3, -4} ok
1 0 > +[WRTUriBridge createUriWithUri:error:] Windows.Foundation.IUriRuntimeClassFactory.CreateUri("no address") = nil E_INVALIDARG (0x80070057)
1 2 >     -[WRTTestClassBridge inPrimitiveWithX:error:] TestInterface.InPrimitive(-3) ok
1 1 <   -[WRTTestClassBridge inDelegateWithArg:error:] TestInterface.InDelegate.Invoke(0, "text", <WRTTestInterfaceBridge PLACE>, <WRTTestClassBridge PLACE>) S_FALSE
1 0 > -[WRTTestClassBridge inDelegateWithArg:error:] TestInterface.InDelegate(^PLACE) ok
1 1 <   -[WRTTestClassBridge inDelegateReturnStringWithArg:error:] TestInterface.InDelegateReturnString.Invoke(&"an answer") ok
1 0 > -[WRTTestClassBridge inDelegateReturnStringWithArg:error:] TestInterface.InDelegateReturnString(^PLACE) ok
1 1 <   -[WRTTestClassBridge inDelegateReturnStringWithArg:error:] TestInterface.InDelegateReturnString.Invoke(PLACE) raised Refusal
1 0 > -[WRTTestClassBridge inDelegateReturnStringWithArg:error:] TestInterface.InDelegateReturnString(^PLACE) ok
1 0 > +[WRTUriBridge activateInstance] Windows.Foundation.Uri.ActivateInstance() = NULL failed
1 0 > +[WRTUriBridge cast:] (<WRTTestClassBridge PLACE>) = <WRTUriBridge PLACE> ok
1 0 > -[WRTUriBridge getPortWithError:] Windows.Foundation.IUriRuntimeClass.get_Port() = 0 not called, E_NOINTERFACE (0x80004002), no IUriRuntimeClass
1 0 > -[WRTUriBridge getPortWithError:] Windows.Foundation.IUriRuntimeClass.get_Port() = 0 not called, E_NOINTERFACE (0x80004002), no IUriRuntimeClass
1 0 > -[WRTTestClassBridge inInterfaceWithArg:error:] TestInterface.InInterface("no bridge") raised NSInvalidArgumentException
2 0 > +[WRTUriBridge createUriWithUri:error:] Windows.Foundation.IUriRuntimeClassFactory.CreateUri("a:other") = <WRTUriBridge PLACE> ok
1 0 > -[WRTUriBridge getPathWithError:] Windows.Foundation.IUriRuntimeClass.get_Path() = "other" ok
alive: 1 WRTUriBridge of +[WRTUriBridge createUriWithUri:error:]
LINES

# Filters, alone and together.
expect 0 traced WRT_TRACE_STATUS=raised,E_INVALIDARG << 'LINES'
1 0 > +[WRTUriBridge createUriWithUri:error:] Windows.Foundation.IUriRuntimeClassFactory.CreateUri("no address") = nil E_INVALIDARG (0x80070057)
1 1 <   -[WRTTestClassBridge inDelegateReturnStringWithArg:error:] TestInterface.InDelegateReturnString.Invoke(PLACE) raised Refusal
1 0 > -[WRTTestClassBridge inInterfaceWithArg:error:] TestInterface.InInterface("no bridge") raised NSInvalidArgumentException
LINES
expect 0 traced 'WRT_TRACE_CLASS=WRTUri*' WRT_TRACE_STATUS=ok << 'LINES'
1 0 > +[WRTUriBridge cast:] (<WRTTestClassBridge PLACE>) = <WRTUriBridge PLACE> ok
2 0 > +[WRTUriBridge createUriWithUri:error:] Windows.Foundation.IUriRuntimeClassFactory.CreateUri("a:other") = <WRTUriBridge PLACE> ok
1 0 > -[WRTUriBridge getPathWithError:] Windows.Foundation.IUriRuntimeClass.get_Path() = "other" ok
LINES
expect 0 traced WRT_TRACE_DURATION=100s < /dev/null

# What is refused: a line, and nothing runs.
refused() { expect 2 traced "$1" <<< "WRTTrace: $2"; }
refused WRT_TRACE_CLASS=WRTUrl "WRT_TRACE_CLASS=WRTUrl: no class is called so"
refused WRT_TRACE_STATUS=ok,E_OK "WRT_TRACE_STATUS=E_OK: a status is ok, failed, raised, or one as E_BOUNDS or 0x8000000B"
refused WRT_TRACE_DURATION=3 "WRT_TRACE_DURATION=3: a duration is a number with us, ms or s, as in 0.5ms"
refused WRT_TRACE_DEPTH=1 "WRT_TRACE_DEPTH: there are WRT_TRACE_CLASS, _STATUS, _DURATION, _FILE, _ALIVE and _TABLES"
refused WRT_TRACE_FILE=/nowhere/x "/nowhere/x: No such file or directory"
refused WRT_TRACE_TABLES=/nowhere "/nowhere/identifiers.tsv cannot be read"
other() { # SED-SCRIPT MESSAGE
  rm -rf "$work/tables"
  cp -R "$build/wrtobjcbridge" "$work/tables"
  sed -i "$1" "$work/tables/catalogue.tsv"
  refused "WRT_TRACE_TABLES=$work/tables" "$2"
}
other 's/getHostWithError:/getHouseWithError:/' "catalogue.tsv is of another version than the library: -[WRTIUriRuntimeClassBridge getHouseWithError:] is not there"
other 's/\(getPortWithError:\t\)i/\1q/' "catalogue.tsv is of another version than the library: -[WRTIUriRuntimeClassBridge getPortWithError:] has other types"
other '20s/\t.*//' "BUILD/trace-test/tables/catalogue.tsv is of another version: line 20 has 1 columns"

# The story of docs/debugging.md, as it is told there.
page=$(dirname "${BASH_SOURCE[0]}")/../../docs/debugging.md
grep -E '^4711 0 > ' "$page" | sed -E 's/^4711/1/; s/0x[0-9a-f]{9,}/PLACE/g; s/ [0-9.]+us$//' | expect 0 miscast

# An application with handlers that outlive the call does what it does untraced.
tour() { TMPDIR=$work "$build/tour" "$(dirname "${BASH_SOURCE[0]}")/../../examples/data" | grep -v '^The summary is in '; }
tour > "$work/untraced"
(export LD_LIBRARY_PATH=$build LD_PRELOAD=libWRTTrace.so WRT_TRACE_FILE=$work/lines; tour) | diff "$work/untraced" - >&2 ||
  { printf 'trace: the tour differs\n' >&2; failed=1; }

[[ $failed -eq 0 ]] && printf 'trace: %d runs, each as it should be\n' "$cases"
exit $failed
