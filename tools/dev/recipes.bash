# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Runs the recipes of docs/large-data.md: the database's, and Dask's with two workers.
#
# usage: ./dev recipes
#
# A database server and a scheduler of their own are started in a folder that is removed at the end. The correlations
# of both ways are compared with those of pelmora-batch; one of Dask's workers is killed in the middle.

need build recipes
build release pelmora-batch
batch=$PWD/build/release/src/batch/pelmora-batch
large=$PWD/src/large/pelmora-large
# Debian's Dask belongs to Debian's Python.
python=/usr/bin/python3
folder=$(mktemp -d)
chmod 755 "$folder"
processes=()

tidy_up() {
    for process in "${processes[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    [ ! -d "$folder/cluster" ] || as_server "$postgres/pg_ctl" -D "$folder/cluster" -m immediate stop >/dev/null || true
    rm -rf "$folder"
}
trap tidy_up EXIT

# A database server refuses to be the superuser.
as_server() {
    if [ "$(id -u)" -eq 0 ]; then
        (cd "$folder" && setpriv --reuid postgres --regid postgres --clear-groups "$@")
    else
        "$@"
    fi
}

# compare <one.cor> <other.cor> <bound>: the largest difference of two correlations.
compare() {
    "$python" - "$@" <<'END'
import sys

def matrix(path):
    with open(path, encoding="latin-1") as file:
        return [[float(x) for x in line.split()] for line in file if line[0] not in "#v"]

one, other, bound = matrix(sys.argv[1]), matrix(sys.argv[2]), float(sys.argv[3])
largest = max(abs(a - b) for x, y in zip(one, other, strict=True) for a, b in zip(x, y, strict=True))
print(f"largest difference of {len(one)} x {len(one)} correlations: {largest:.2g}")
sys.exit(largest > bound)
END
}

# table <cases> <columns>: survey-like numbers with a large mean.
table() {
    awk -v n="$1" -v p="$2" 'BEGIN {
        srand(1)
        for (i = 0; i < n; ++i) {
            common = rand()
            line = ""
            for (j = 0; j < p; ++j)
                line = line sprintf("%s%.4f", j ? " " : "", 10000 * j + common + rand())
            print line
        }
    }'
}

say "A table in a database"
postgres=$(dirname "$(find /usr/lib/postgresql -path '*/bin/initdb' | sort -V | tail -n 1)")
mkdir "$folder/cluster" "$folder/socket"
[ "$(id -u)" -ne 0 ] || chown postgres "$folder/cluster" "$folder/socket"
as_server "$postgres/initdb" -A trust -D "$folder/cluster" -U recipes -E UTF8 --locale=C.UTF-8 >/dev/null
as_server "$postgres/pg_ctl" -D "$folder/cluster" -w -l "$folder/cluster/log" \
    -o "-c listen_addresses= -k $folder/socket" start >/dev/null
psql=(psql -X -A -t -q -v ON_ERROR_STOP=1 -h "$folder/socket" -U recipes postgres)
# 60 columns are 1770 pairs, so that there is more than one statement.
table 5000 60 >"$folder/data.txt"
{
    echo "CREATE TABLE answers ($(seq -f '"item %g" float8' -s ', ' 60));"
    echo "COPY answers FROM STDIN (DELIMITER ' ');"
    cat "$folder/data.txt"
} | "${psql[@]}"
# shellcheck disable=SC2016 # the backquotes are those of a block of code
sed -n '/^```sql$/,/^```$/{/^```/d;p}' docs/large-data.md >"$folder/correlate.sql"
"${psql[@]}" -v table=answers -f "$folder/correlate.sql" >"$folder/database.cor"
"$batch" correlate "$folder/data.txt" -o "$folder/batch.cor"
compare "$folder/database.cor" "$folder/batch.cor" 1e-12
"$batch" analyse "$folder/database.cor" --correlations --write eig --factors 2 --quiet

say "Dask, two workers, one of them killed"
table 400000 20 >"$folder/large.txt"
"$python" -m distributed.cli.dask_scheduler --port 0 --no-dashboard --scheduler-file "$folder/scheduler" \
    >"$folder/log" 2>&1 &
processes+=($!)
for _ in 1 2; do
    "$python" -m distributed.cli.dask_worker --scheduler-file "$folder/scheduler" --nthreads 1 --no-nanny \
        --no-dashboard --memory-limit 0 --local-directory "$folder" >>"$folder/log" 2>&1 &
    processes+=($!)
done
until [ -s "$folder/scheduler" ]; do sleep 0.1; done
address=$(sed -n 's/.*"address": "\([^"]*\)".*/\1/p' "$folder/scheduler")
"$python" "$large" correlate "$folder/large.txt" -o "$folder/killed.cor" --program "$batch" --range 500000 \
    --scheduler "$address" &
client=$!
# As soon as it works on a range.
until pgrep -P "${processes[2]}" >/dev/null || ! kill -0 "$client" 2>/dev/null; do :; done
kill -9 "${processes[2]}"
wait "${processes[2]}" 2>/dev/null || true
wait "$client"
"$python" "$large" correlate "$folder/large.txt" -o "$folder/two.cor" --program "$batch" --range 500000 --workers 2
cmp "$folder/killed.cor" "$folder/two.cor"
echo "the same bits with and without the worker"
"$batch" correlate "$folder/large.txt" -o "$folder/whole.cor"
compare "$folder/two.cor" "$folder/whole.cor" 1e-14
