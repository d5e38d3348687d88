# For scripts to source: the settings store of the program.
# shellcheck shell=bash

# store_text CONFIG_FOLDER KEY NAME: a text of the settings store, empty if there is none.
store_text() {
    local file=$1/velorama/registry.sqlite
    if [[ -f $file ]]; then
        sqlite3 -readonly "$file" "SELECT data FROM registry WHERE hive = 'HKCU'
            AND key = 'SOFTWARE\\Brightquay\\Velorama\\$2' COLLATE NOCASE
            AND name = '$3' COLLATE NOCASE" 2>/dev/null || true
    fi
}

# store_put CONFIG_FOLDER KEY NAME TEXT: sets it where it is absent.
store_put() {
    local file=$1/velorama/registry.sqlite
    if [[ -n $(store_text "$1" "$2" "$3") ]]; then
        return
    fi
    mkdir -p "$1/velorama"
    sqlite3 "$file" "CREATE TABLE IF NOT EXISTS registry(
            hive TEXT, key TEXT, name TEXT, type INTEGER, data);
        INSERT INTO registry(hive, key, name, type, data)
            VALUES('HKCU', 'SOFTWARE\\Brightquay\\Velorama\\$2', '$3', 1, '${4//\'/\'\'}')"
}
