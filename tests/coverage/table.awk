# Adds up, for each room, the lines and branches of llvm-cov's summary that were reached: reads an lcov trace
# and writes a table, the rooms by name. A room is the first folder of a path, of `generator` and `platform`
# the first two; what the build has made is one room.
# Usage: awk -v root=REPOSITORY -f table.awk TRACE

function roomOf(path,    part) {
  path = substr(path, length(root) + 2)
  split(path, part, "/")
  if (part[1] == "build")
    return "generated"
  return (part[1] == "generator" || part[1] == "platform") && split(path, part, "/") > 2 \
    ? part[1] "/" part[2] : part[1]
}

function percent(reached, all) {
  return all ? sprintf("%.1f", 100 * reached / all) : "–"
}

function row(room) {
  return sprintf("| %s | %d | %s | %d | %s |", room, lines[room], percent(linesReached[room], lines[room]),
    branches[room], percent(branchesReached[room], branches[room]))
}

BEGIN { FS = ":" }
/^SF:/ { room = roomOf(substr($0, 4)) }
/^LF:/ { lines[room] += $2 }
/^LH:/ { linesReached[room] += $2 }
/^BRF:/ { branches[room] += $2 }
/^BRH:/ { branchesReached[room] += $2 }

END {
  if (!("core" in lines) || !linesReached["core"]) {
    print "coverage: nothing was counted" > "/dev/stderr"
    exit 1
  }
  print "| room | lines | % reached | branches | % reached |"
  print "|---|---|---|---|---|"
  for (room in lines)
    if (room != "generated")
      print row(room) | "sort"
  close("sort")
  print row("generated")
}
