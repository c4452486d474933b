# shellcheck shell=sh
# What the viewer remembers, on each system.
# shellcheck disable=SC2154  # system and wine_run are the sourcing script's

settings_key='Software\Zelkor\Quarvel Log Viewer'

# setting KEY NAME: a number in decimal, or a text. KEY is below the viewer's own, with a backslash
# in front, or empty.
setting() {
  case $system in
    linux)
      group=$(printf '%s' "$settings_key$1" | tr '\\' '/' | sed 's/ /\\ /g')
      awk -v group="[$group]" -v name="$2=" '
        /^\[/ { inside = ($0 == group) }
        inside && index($0, name) == 1 { print substr($0, length(name) + 1) }
      ' "$XDG_CONFIG_HOME/quarvel-log-viewer/settings" 2>/dev/null
      ;;
    windows)
      line=$("$wine_run" reg query "HKCU\\$settings_key$1" /v "$2" 2>/dev/null | tr -d '\r' |
        grep '  REG_')
      case $line in
        *REG_DWORD*) printf '%d\n' "${line##* }" ;;
        *REG_SZ*) printf '%s\n' "${line##*REG_SZ    }" ;;
      esac
      ;;
  esac
}

setting_is() { [ "$(setting "$1" "$2")" = "$3" ]; }
setting_ends() {
  case $(setting "$1" "$2") in
    *"$3") return 0 ;;
  esac
  return 1
}

forget_settings() {
  case $system in
    linux) rm -rf "$XDG_CONFIG_HOME/quarvel-log-viewer/settings" ;;
    windows) "$wine_run" reg delete "HKCU\\$settings_key" /f >/dev/null 2>&1 ;;
  esac
}

# remember KEY NAME TEXT: as if an earlier run had left it.
remember() {
  case $system in
    linux)
      mkdir -p "$XDG_CONFIG_HOME/quarvel-log-viewer"
      group=$(printf '%s' "$settings_key$1" | tr '\\' '/' | sed 's/ /\\ /g')
      file=$XDG_CONFIG_HOME/quarvel-log-viewer/settings
      # Settings of one key follow each other.
      grep -qxF "[$group]" "$file" 2>/dev/null || printf '[%s]\n' "$group" >>"$file"
      printf '%s=%s\n' "$2" "$3" >>"$file"
      ;;
    windows)
      "$wine_run" reg add "HKCU\\$settings_key$1" /v "$2" /t REG_SZ /d "$3" /f >/dev/null 2>&1
      ;;
  esac
}
