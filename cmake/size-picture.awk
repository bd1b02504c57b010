# Draws the first two tables of docs/size.md, the image's sections and what it is made of: a bar for each row.
#
# Usage: awk -f size-picture.awk docs/size.md > PICTURE.svg

/^\| (part|what it is made of) \|/ { inTable = 1; next }
inTable && !/^\|/ { inTable = 0 }
inTable && !/^\|-/ && !/the file/ {
  split($0, column, " *\\| *")
  isSection[++rows] = sub(/^section /, "", column[2])
  gsub(/`/, "", column[2])
  name[rows] = column[2]
  shown[rows] = column[3]
  gsub(/,/, "", column[3])
  bytes[rows] = column[3] + 0
  if (bytes[rows] > most)
    most = bytes[rows]
}

END {
  if (rows < 3 || most == 0) {
    print "size-picture: the table was not found" > "/dev/stderr"
    exit 1
  }
  printf "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 760 %d\" role=\"img\" aria-label=\"What the product is made of\">\n", 40 + rows * 22
  print "<style>"
  print "text { font: 12px system-ui, sans-serif; fill: #24292f }"
  print ".platform { fill: #8c959f } .messages { fill: #3b82c4 }"
  print "@media (prefers-color-scheme: dark) { text { fill: #d7dde3 } .platform { fill: #6e7781 } .messages { fill: #58a6ff } }"
  print "</style>"
  for (i = 1; i <= rows; ++i) {
    y = i * 22 + (isSection[i] ? 0 : 20)
    printf "<text x=\"292\" y=\"%d\" text-anchor=\"end\">%s</text>", y, name[i]
    printf "<rect class=\"%s\" x=\"300\" y=\"%d\" width=\"%.1f\" height=\"14\" rx=\"2\"/>", isSection[i] ? "platform" : "messages", y - 11, 370 * bytes[i] / most
    printf "<text x=\"%.1f\" y=\"%d\">%s</text>\n", 306 + 370 * bytes[i] / most, y, shown[i]
  }
  print "</svg>"
}
