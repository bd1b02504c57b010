# Every link of the site leads to a page that is there, and to a part of it that is there.
# Usage: cd SITE && find . -name '*.html' | xargs awk -f links.awk
# (the names of pages without spaces, "./" first). Prints what does not, and a last line with the totals.

FNR == 1 { page = substr(FILENAME, 3); pages[page] }
{
  rest = $0
  while (match(rest, / id="?[^" >]+/)) {
    id = substr(rest, RSTART + 4, RLENGTH - 4)
    sub(/^"/, "", id)
    ids[page "#" id]
    rest = substr(rest, RSTART + RLENGTH)
  }
  rest = $0
  while (match(rest, / (href|src)="?[^" >]+/)) {
    link = substr(rest, RSTART, RLENGTH)
    rest = substr(rest, RSTART + RLENGTH)
    sub(/^ (href|src)="?/, "", link)
    if (!((page, link) in seen)) {
      seen[page, link]
      check(link)
    }
  }
}

function check(link,    path, part, folder) {
  if (link ~ /^[a-z]+:/)
    return
  ++count
  path = part = link
  sub(/#.*/, "", path)
  if (!sub(/^[^#]*#/, "", part))
    part = ""
  if (path == "")
    path = page
  else {
    folder = page
    sub(/[^\/]*$/, "", folder)
    path = folder path
    while (sub(/[^\/]+\/\.\.\//, "", path)) ;
    gsub(/(^|\/)\.\//, "/", path)
    sub(/^\//, "", path)
  }
  wanted[++size] = page "\t" link "\t" path "\t" part
}

END {
  for (i = 1; i <= size; ++i) {
    split(wanted[i], w, "\t")
    if (w[3] ~ /\.html$/ ? !(w[3] in pages) : (getline line < w[3]) < 0)
      print w[1] ": nothing is at " w[2]
    else if (w[4] != "" && !((w[3] "#" w[4]) in ids))
      print w[1] ": no such part: " w[2]
    else
      continue
    ++wrong
  }
  printf "%d pages, %d links, %d wrong\n", length(pages), count, wrong
  exit wrong > 0 || count < 10000
}
