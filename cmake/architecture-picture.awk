# Draws the table of rooms (rooms.awk): a box for each row, an arrow for each room that it may use. What may
# use a room stands above it.
#
# Usage: awk -f rooms.awk -f architecture-picture.awk docs/architecture.md > PICTURE.svg

BEGIN {
  kWidth = 1280; kRow = 84; kHeight = 30; kGap = 14; kTop = 16
}

function tableRow(line, room, uses,    list, n, i) {
  n = names(room, list)
  id = ++boxes
  if (n == 0) {
    gsub(/^ +| +$/, "", room)
    label[id] = room
    byName[room] = id
  }
  for (i = 1; i <= n; ++i) {
    label[id] = label[id] (i > 1 ? ", " : "") shortened(list[i])
    byName[list[i]] = id
  }
  used[id] = uses
}

# The middle of a long path left out.
function shortened(path,    parts, n) {
  n = split(path, parts, "/")
  return n > 3 ? parts[1] "/" parts[2] "/.../" parts[n] : path
}

function extra(name) {
  if (!(name in byName)) {
    byName[name] = ++boxes
    label[boxes] = name
    isMade[boxes] = 1
  }
  return byName[name]
}

function edge(from, to) {
  if (from != to && !((from, to) in known)) {
    known[from, to]
    edgeFrom[++edges] = from
    edgeTo[edges] = to
  }
}

# The row that has the room, or the room that it is in.
function boxOf(name) {
  while (!(name in byName) && name ~ /\//)
    sub(/\/[^\/]*$/, "", name)
  return name in byName ? byName[name] : 0
}

END {
  rows = boxes
  for (id = 1; id <= rows; ++id) {
    if (used[id] ~ /everything/ && label[id] !~ /:/) { # above all, without arrows
      label[id] = label[id] ": everything"
      isOver[id] = 1
      continue
    }
    if (used[id] ~ /public headers/)
      edge(id, extra("public headers"))
    if (used[id] ~ /generated ABI headers/)
      edge(id, extra("generated ABI headers"))
    n = names(used[id], list)
    for (i = 1; i <= n; ++i)
      if (boxOf(list[i]))
        edge(id, boxOf(list[i]))
  }
  place()
  draw()
}

# Each above all that it uses; what uses nothing just below the lowest that uses it.
function place(    changed, e, i, id, sweep, r) {
  do {
    changed = 0
    for (e = 1; e <= edges; ++e)
      if (rank[edgeFrom[e]] <= rank[edgeTo[e]] + 0) {
        rank[edgeFrom[e]] = rank[edgeTo[e]] + 1
        changed = 1
      }
  } while (changed)
  for (e = 1; e <= edges; ++e)
    if (rank[edgeFrom[e]] > top)
      top = rank[edgeFrom[e]]
  for (id = 1; id <= boxes; ++id) {
    r = isOver[id] ? top + 1 : rank[id] + 0
    rank[id] = r
    order[r, ++inRow[r]] = id
    width[id] = 7 * length(label[id]) + 20
  }
  for (r in inRow)
    spread(r)
  for (sweep = 0; sweep < 12; ++sweep)
    for (i = 0; i <= top; ++i)
      arrange(sweep % 2 ? top - i : i)
}

# Boxes of a row side by side in their order, as a whole in the middle.
function spread(r,    i, whole, x) {
  whole = -kGap
  for (i = 1; i <= inRow[r]; ++i)
    whole += width[order[r, i]] + kGap
  if (whole > widest)
    widest = whole
  x = (kWidth - whole) / 2
  for (i = 1; i <= inRow[r]; ++i) {
    centre[order[r, i]] = x + width[order[r, i]] / 2
    x += width[order[r, i]] + kGap
  }
}

# Orders a row by where its neighbours stand.
function arrange(r,    i, j, e, id, sum, n, want, swap) {
  for (i = 1; i <= inRow[r]; ++i) {
    id = order[r, i]
    sum = n = 0
    for (e = 1; e <= edges; ++e) {
      if (edgeFrom[e] == id) { sum += centre[edgeTo[e]]; ++n }
      if (edgeTo[e] == id) { sum += centre[edgeFrom[e]]; ++n }
    }
    want[id] = n ? sum / n : centre[id]
  }
  for (i = 2; i <= inRow[r]; ++i)
    for (j = i; j > 1 && want[order[r, j]] < want[order[r, j - 1]]; --j) {
      swap = order[r, j]; order[r, j] = order[r, j - 1]; order[r, j - 1] = swap
    }
  spread(r)
}

function y(id) { return kTop + (top + 1 - rank[id]) * kRow }

function draw(    e, id, from, to, kind) {
  printf "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %d %d\" role=\"img\" aria-label=\"The rooms and what each may use\">\n", kWidth, kTop + (top + 1) * kRow + kHeight + 16
  print "<style>"
  print "text { font: 12px ui-monospace, monospace; fill: #24292f }"
  print ".box { fill: #f5f7fa; stroke: #c5ccd3 } .own { fill: #e8f0fe; stroke: #3b82c4 }"
  print ".edge { fill: none; stroke: #8c959f } .point { fill: #8c959f }"
  print "@media (prefers-color-scheme: dark) {"
  print "  text { fill: #d7dde3 } .box { fill: #1c2229; stroke: #46505a } .own { fill: #23344f; stroke: #58a6ff }"
  print "  .edge { stroke: #6e7781 } .point { fill: #6e7781 }"
  print "}"
  print "</style>"
  print "<defs><marker id=\"point\" viewBox=\"0 0 8 8\" refX=\"7\" refY=\"4\" markerWidth=\"7\" markerHeight=\"7\" orient=\"auto\"><path class=\"point\" d=\"M0 1L8 4L0 7z\"/></marker></defs>"
  for (e = 1; e <= edges; ++e) {
    from = y(edgeFrom[e]) + kHeight
    to = y(edgeTo[e]) - 1
    printf "<path class=\"edge\" marker-end=\"url(#point)\" d=\"M%.0f %dC%.0f %d %.0f %d %.0f %d\"/>\n", centre[edgeFrom[e]], from, centre[edgeFrom[e]], from + 34, centre[edgeTo[e]], to - 34, centre[edgeTo[e]], to
  }
  for (id = 1; id <= boxes; ++id) {
    kind = label[id] ~ /^(core|marshal|generated members)/ ? "box own" : "box"
    printf "<rect class=\"%s\" x=\"%.0f\" y=\"%d\" width=\"%d\" height=\"%d\" rx=\"6\"%s/>", kind, centre[id] - width[id] / 2, y(id), width[id], kHeight, isMade[id] ? " stroke-dasharray=\"4 3\"" : ""
    printf "<text class=\"code\" text-anchor=\"middle\" x=\"%.0f\" y=\"%d\">%s</text>\n", centre[id], y(id) + 19, label[id]
  }
  print "</svg>"
  if (widest > kWidth) {
    print "architecture-picture: a row of " widest " does not fit" > "/dev/stderr"
    exit 1
  }
}
