#!/bin/bash
# prova-chiamate.sh LIB...   (the layers' libraries, from the floor up)
# No layer calls a layer above it: nothing a library leaves undefined may be
# defined, for good, by a library above it. A lower layer reaches a higher one
# only through a hook the higher one registers.
set -u
librerie=("$@")
esito=0
definiti() { nm --defined-only -g "$1" 2>/dev/null | awk 'NF == 3 && $2 ~ /^[TDBR]$/ { print $3 }' | sort -u; }
for ((i = 0; i < ${#librerie[@]}; i++)); do
    sotto=${librerie[$i]}
    mancanti=$(nm -u "$sotto" 2>/dev/null | awk '$1 == "U" { print $2 }' | sort -u)
    for ((j = i + 1; j < ${#librerie[@]}; j++)); do
        sopra=${librerie[$j]}
        chiamate=$(comm -12 <(echo "$mancanti") <(definiti "$sopra"))
        if [ -n "$chiamate" ]; then
            echo "FAIL: $(basename "$sotto") calls $(basename "$sopra"):"
            echo "$chiamate" | head -10 | c++filt | sed 's/^/    /'
            esito=1
        fi
    done
done
[ $esito -eq 0 ] && echo "PASS: no layer calls a layer above it (${#librerie[@]} layers)"
exit $esito
