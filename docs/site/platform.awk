# Reads what the embedded platform on Linux has written from its sources: a line for each interface that
# one of its objects implements, and "interface<TAB>function" for each function that does nothing but
# refuse. A function stands with every interface of its file; `bridgegen --reference` drops the pairs that
# do not belong together.
#
# Usage: awk -f platform.awk SOURCE...

FNR == 1 { endFile() }
{ sub(/[ \t]*\/\/.*/, ""); text = text " " $0 }
END {
  endFile()
  if (count == 0) {
    print "platform.awk: no interface was found" > "/dev/stderr"
    exit 1
  }
}

function endFile() {
  delete own
  interfaces(text)
  refusals(text)
  text = ""
}

# What an object is made of stands behind these names.
function interfaces(rest,    list) {
  while (match(rest, /(Implements|ActivationFactory|StorageItem|XmlNodeObject|CharacterData|VectorViewObject|VectorObject|MapObject|Text|operator\(\))<[^{;()]*|public abi::I[A-Za-z0-9]+/)) {
    list = substr(rest, RSTART, RLENGTH)
    rest = substr(rest, RSTART + RLENGTH)
    while (match(list, /(^|[^A-Za-z0-9_])I[A-Z][A-Za-z0-9]*/)) {
      add(substr(list, RSTART, RLENGTH))
      list = substr(list, RSTART + RLENGTH)
    }
  }
}

function add(name) {
  sub(/^[^A-Za-z0-9_]/, "", name)
  if (name == "IAsync") { # one template for four
    add("IAsyncAction")
    add("IAsyncActionWithProgress")
    add("IAsyncOperation")
    name = "IAsyncOperationWithProgress"
  }
  own[name]
  if (!(name in known)) {
    known[name]
    print name
    ++count
  }
}

# Functions whose one return refuses.
function refusals(rest,    name, body, interface) {
  while (match(rest, /HRESULT WRT_ABI +[A-Za-z0-9_]+\([^{};]*\) (const )?(override|final) *\{/)) {
    name = substr(rest, RSTART, RLENGTH)
    sub(/HRESULT WRT_ABI +/, "", name)
    sub(/\(.*/, "", name)
    rest = substr(rest, RSTART + RLENGTH)
    body = rest
    if (match(body, /HRESULT WRT_ABI /))
      body = substr(body, 1, RSTART)
    if (gsub(/return [^;]*;/, "&", body) == 0 || !match(body, /^[^}]*return (notImplemented\([a-z]*\)|status::kNotImplemented);/))
      continue
    body = substr(body, 1, RLENGTH)
    if (gsub(/return /, "", body) == 1)
      for (interface in own)
        print interface "\t" name
  }
}
