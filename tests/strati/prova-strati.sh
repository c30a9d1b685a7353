#!/bin/bash
# prova-strati.sh BUILD TARGET:HEADER...
# Every TARGET must fail to compile, and for the one reason that HEADER is not
# reachable from its layer.
set -u
build=$1
shift
esito=0
for coppia in "$@"; do
    bersaglio=${coppia%%:*}
    intestazione=${coppia#*:}
    if uscita=$(cmake --build "$build" --target "$bersaglio" 2>&1); then
        echo "FAIL: $bersaglio reaches $intestazione, a layer above it"
        esito=1
    elif ! grep -qF "$intestazione: No such file or directory" <<<"$uscita"; then
        echo "FAIL: $bersaglio failed for another reason:"
        echo "$uscita" | tail -20
        esito=1
    else
        echo "PASS: $bersaglio cannot include $intestazione"
    fi
done
exit $esito
