{{- /* Address, title, declared names and headings of each page that people wrote. */ -}}
{{- $pages := slice -}}
{{- range site.RegularPages -}}
{{- if ne .Section "api" -}}
{{- $names := slice -}}
{{- if eq .Section "headers" -}}
{{- range findRE `(?m)^(?:[A-Za-z].*?\bWRT\w+\(|typedef .*?\^WRT\w+\)|(?:typedef|\}) .*?\bWRT\w+;|@(?:interface|protocol) WRT\w+|#define WRT\w+|  WRT\w+ =)` .RawContent -}}
{{- $names = $names | append (replaceRE `^.*\b(WRT\w+)\W*$` "$1" .) -}}
{{- end -}}
{{- end -}}
{{- $headings := apply (findRE `(?m)^##+ .*$` .RawContent) "strings.TrimLeft" "# " "." -}}
{{- $pages = $pages | append (slice (slice .RelPermalink (partial "title" .) (uniq $names) $headings)) -}}
{{- end -}}
{{- end -}}
wrtGuides({{ $pages | jsonify }});
