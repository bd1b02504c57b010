# Reads the table of docs/architecture.md whose heading is "| folder | may use |"; the first file of an awk
# program that is given that document first. In its first column, names in backticks are rooms: folders, or
# the beginnings of file names. The second column names rooms, "public headers", "generated ABI headers" or
# "everything".
#
#   rooms[name]     the table's line that the room stands in
#   mayUse[name]    the second column
#   input           which of the program's files is being read, from 1

FNR == 1 { ++input }

input == 1 && /^\| folder \| may use \|/ { inTable = 1; next }
input == 1 && inTable && !/^\|/ { inTable = 0 }
input == 1 && inTable && !/^\|-/ {
  split($0, column, "|")
  count = names(column[2], row)
  for (i = 1; i <= count; ++i) {
    rooms[row[i]] = FNR
    mayUse[row[i]] = column[3]
  }
  tableRow(FNR, column[2], column[3])
}
input == 1 { next }

# The names in backticks, without a slash at their end, into `result`; how many.
function names(text, result,    parts, i, count) {
  count = split(text, parts, "`")
  for (i = 2; i <= count; i += 2) {
    sub(/\/$/, "", parts[i])
    result[i / 2] = parts[i]
  }
  return int(count / 2)
}
