# Wraps the paragraphs and lists of a Markdown file at 120 columns. Code, tables, headings and what programs
# write (between comments of which the second says "end") stay as they are; code in backticks and links stay
# in one piece.
#
# Usage: LC_ALL=C awk -f wrap.awk FILE.md > WRAPPED

BEGIN { kWidth = 120 }

/^ *(```|~~~)/ { flush(); isCode = !isCode; print; next }
isCode { print; next }
/^<!--/ { flush(); isMade = !/end/; print; next }
isMade || /^$/ || /^[|#]/ || /^!\[/ || (/^    / && !isItem) { flush(); isItem = 0; print; next }
/^ *([-*]|[0-9]+\.) / {
  flush()
  match($0, /^ *([-*]|[0-9]+\.) /)
  first = substr($0, 1, RLENGTH)
  following = sprintf("%" RLENGTH "s", "")
  text = substr($0, RLENGTH + 1)
  isItem = 1
  next
}
{
  sub(/^ +/, "")
  text = text == "" ? $0 : text " " $0
}
END { flush() }

# How many characters, not bytes.
function width(word) {
  gsub(/[\200-\277]/, "", word)
  return length(word)
}

# The next piece of the text that must not be broken, taken from it.
function piece(    i, c, inCode, inLink) {
  for (i = 1; i <= length(text); ++i) {
    c = substr(text, i, 1)
    if (c == "`") { # as many end it as began it
      match(substr(text, i), /^`+/)
      if (inCode == 0 || inCode == RLENGTH)
        inCode = inCode ? 0 : RLENGTH
      i += RLENGTH - 1
    }
    else if (!inCode && c == "[")
      inLink = substr(text, i) ~ /^\[[^]]*\]\(/
    else if (c == ")")
      inLink = 0
    else if (c == " " && !inCode && !inLink)
      break
  }
  c = substr(text, 1, i - 1)
  text = substr(text, i + 1)
  return c
}

function flush(    line, word, next_) {
  if (text == "")
    return
  line = first piece()
  while (text != "") {
    word = piece()
    # What would mean something at the start of a line stays with what is behind it.
    while (text ~ /^([-+*#|>]|[0-9]+[.)])( |$)/)
      word = word " " piece()
    if (width(line) + 1 + width(word) > kWidth) {
      print line
      line = following word
    } else {
      line = line " " word
    }
  }
  print line
  first = following = ""
}
