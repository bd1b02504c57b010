#!/bin/sh
# imported-data.sh NM OBJECTS.rsp RESULT: linker options that let data words name what other libraries
# export.
#
# The compiler writes the address of a class into metadata as if every class were the image's own. Where
# it is not, the word is made to point at the import slot; start-up puts the slot's content in its place.
# Only what the compiler does that with is taken: any other reference to imported data fails the link.
set -eu

"$1" --undefined-only --format=just-symbols --quiet "@$2" |
  grep -E '^(OBJC_(META)?CLASS_\$_.*|_objc_empty_cache|__CFConstantStringClassReference|_NSConcrete.*Block)$' |
  LC_ALL=C sort -u | sed 's|.*|/alternatename:&=__imp_&|' > "$3"
