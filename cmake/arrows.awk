# Reads the includes of sources against the table of rooms (rooms.awk); the longest room that fits a path is
# its room.
#
# Usage: awk -f rooms.awk -f arrows.awk docs/architecture.md LIST SOURCE...
# LIST names all files of the repository, a line each. A room may use itself and what it is in. Exit
# status 1 with a line for each include that the table does not allow.

input == 2 {
  known[$0] = 1
  name = $0
  sub(/.*\//, "", name)
  places[name] = places[name] "\n" $0
  next
}

FNR == 1 { from = roomOf(FILENAME) }
/^[ \t]*#[ \t]*(include|import)/ && match($0, /["<][^">]*[">]/) {
  what = substr($0, RSTART + 1, RLENGTH - 2)
  to = target(what)
  if (from != "" && to != "" && !allowed(from, to)) {
    printf "%s:%d: %s may not use %s: %s\n", FILENAME, FNR, from, to, what
    failed = 1
  }
}

END {
  if (input < 3 || length(rooms) < 5) {
    print "arrows: there is no table of rooms, or no source"
    failed = 1
  }
  exit failed
}

# Of rooms.awk; the rows themselves are nothing to this.
function tableRow(line, room, uses) {}

function isIn(path, room,    next_) {
  if (substr(path, 1, length(room)) != room)
    return 0
  next_ = substr(path, length(room) + 1, 1)
  return next_ == "" || next_ == "/" || next_ == "."
}

function roomOf(path,    room, best) {
  best = ""
  for (room in rooms)
    if (isIn(path, room) && length(room) > length(best))
      best = room
  return best
}

# The room of an include; "" for what is not ours.
function target(what,    folder, list, i, count, room, own) {
  if (what ~ /^abi\// || what ~ /^platform\/[^\/]*\.platform\.h$/)
    return "generated ABI headers"
  if (what ~ /^WRTObjcBridge\//) {
    sub(/^WRTObjcBridge\//, "", what)
    return ("core/" what) in known ? "core" : ("platform/include/" what) in known ? "platform/include" : "public headers"
  }
  if (what ~ /^members\//)
    return "generated members and classes"
  folder = FILENAME
  sub(/[^\/]*$/, "", folder)
  if ((folder what) in known)
    return roomOf(folder what)
  if (what in known)
    return roomOf(what)
  if (what ~ /\// || !(what in places))
    return ""
  # Found in a folder that the compiler was told: in the room itself if one has it, else in one that the
  # room may use.
  count = split(substr(places[what], 2), list, "\n")
  room = roomOf(list[1])
  for (i = 1; i <= count; ++i) {
    own = roomOf(list[i])
    if (own == from)
      return own
    if (allowed(from, own))
      room = own
  }
  return room
}

function allowed(from, to,    list, i, count) {
  if (isIn(from, to) || mayUse[from] ~ /everything/)
    return 1
  if (mayUse[from] ~ /public headers/ && (to == "public headers" || to == "core" || to == "platform/include") && what ~ /^WRTObjcBridge\//)
    return 1
  if (to ~ /^generated/ && index(mayUse[from], to))
    return 1
  count = names(mayUse[from], list)
  for (i = 1; i <= count; ++i)
    if (isIn(to, list[i]))
      return 1
  return 0
}
