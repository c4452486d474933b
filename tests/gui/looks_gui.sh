#!/bin/sh
# How the window looks: in Japanese, light and dark, on screens of other densities.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck source=tests/gui/extras.sh
. "$root/tests/gui/extras.sh"
# shellcheck disable=SC2154  # set by what is sourced

english_title=$title
japanese_title='Korvath Quarvel ログ ビューアー'

# A locale of the test's own, where the computer has none of that language.
speak_japanese() {
  if [ ! -d "$folder/locales" ]; then
    mkdir "$folder/locales"
    must "a Japanese locale is made" \
      localedef -i ja_JP -f UTF-8 "$folder/locales/ja_JP.UTF-8"
  fi
  LOCPATH=$folder/locales LC_ALL=ja_JP.UTF-8 LANG=ja_JP.UTF-8
  export LOCPATH
  title=$japanese_title
}
speak_english() {
  unset LOCPATH
  LC_ALL=C.UTF-8 LANG=C.UTF-8
  title=$english_title
}

# The system's setting for a screen, or the system's own again.
enlarge() {
  case $system in
    linux) export GDK_DPI_SCALE=1.5 ;;
    windows) "$wine_run" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 144 /f \
      >/dev/null ;;
  esac
}
as_usual() {
  case $system in
    linux) unset GDK_DPI_SCALE GDK_SCALE GTK_THEME ;;
    windows)
      "$wine_run" reg delete 'HKCU\Control Panel\Desktop' /v LogPixels /f >/dev/null 2>&1
      for name in Window WindowText; do
        "$wine_run" reg delete 'HKCU\Control Panel\Colors' /v "$name" /f >/dev/null 2>&1
      done
      ;;
  esac
}

# ---- Dialogs on a small screen at 150 % ----

# Whole, with a frame around it.
fits() {
  eval "$(xdotool getwindowgeometry --shell "$1" | grep -E '^(WIDTH|HEIGHT)=')"
  [ "$WIDTH" -le 1360 ] && [ "$HEIGHT" -le 740 ] && [ "$WIDTH" -gt 100 ]
}
# expect_fit NAME KEYS...: of the dialog that the keys open.
expect_fit() {
  name=$1
  shift
  for keys in "$@"; do key "$keys"; done
  expect_dialog "the $name dialog"
  check "the $name dialog fits" fits "$dialog"
  keep_picture "${title#Korvath Quarvel } $name"
  key Escape
  expect_main "the $name dialog has gone"
}
# For those who look at them: with KEEP_PICTURES set to a folder.
keep_picture() {
  [ -z "${KEEP_PICTURES:-}" ] || import -window root "$KEEP_PICTURES/$system $1.png"
}
dialogs_fit() {
  serve "$demo"
  for language in english japanese; do
    "speak_$language"
    enlarge
    open_viewer
    expect_machine LOCALHOST
    check "the window fits" fits "$main"
    expect_fit filter ctrl+f
    expect_fit note ctrl+m
    expect_fit clear ctrl+l
    expect_fit about alt+h a
    [ "$system" = windows ] || expect_fit browser alt+b
    close_viewer
    as_usual
    forget_settings
  done
  speak_english
}

# ---- Japanese ----

japanese() {
  speak_japanese
  open_viewer "$demo"
  check "every entry is listed" shows_rows 200
  key Home
  check "the headings are Japanese" headings_are_japanese
  menu v t
  menu v d
  keep_picture window
  menu l v
  expect_preview
  keep_picture preview
  key Escape
  expect_main "the preview has gone"
  key F1
  check "the help is Japanese" shows_japanese_help
  keep_picture help
  xdotool windowactivate "$main"
  close_viewer
  speak_english
  forget_settings
}
# The page's own title. Windows' viewer has the book's, which differs by a word only: it is ASCII.
shows_japanese_help() {
  case $system in
    linux) shows_window 'ヘルプ: Quarvel ログ ビューアー' ;;
    windows) shows_window "$english_title" ;;
  esac
}
headings_are_japanese() { copied ctrl+c | head -n 1 | grep -q '説明.*クラス.*重大度'; }

# ---- Light and dark ----

# How bright the list is below its last row, of 100.
brightness() {
  timeout 10 import -window "$main" -crop 200x60+200+300 +repage -colorspace gray png:- |
    convert png:- -resize 1x1 -format '%[fx:int(100*intensity)]' info:
}
is_light() { [ "$(brightness)" -gt 80 ]; }
is_dark() { [ "$(brightness)" -lt 35 ]; }
colours() {
  qvlog sample --entries 2 -o two.qvx
  open_viewer two.qvx
  check "the window is as light as the system" is_light
  close_viewer
  case $system in
    linux) export GTK_THEME=Adwaita:dark ;;
    windows)
      "$wine_run" reg add 'HKCU\Control Panel\Colors' /v Window /d '30 30 30' /f >/dev/null
      "$wine_run" reg add 'HKCU\Control Panel\Colors' /v WindowText /d '230 230 230' /f >/dev/null
      ;;
  esac
  open_viewer two.qvx
  check "the window is as dark as the system" is_dark
  menu v t
  check "so is the strip of severities" is_dark
  keep_picture dark
  close_viewer
  as_usual
}

# ---- Pictures on a dense screen ----

# Pictures of a usual screen, only made larger, stay the same when every second pixel is dropped
# and doubled again.
has_fine_pictures() {
  timeout 10 import -window "$main" -crop 28x34+6+186 +repage "$folder/icon.png"
  convert "$folder/icon.png" -sample 50% -sample 200% "$folder/coarse.png"
  [ "$(convert "$folder/icon.png" -unique-colors txt:- | wc -l)" -gt 10 ] &&
    ! compare -metric AE "$folder/icon.png" "$folder/coarse.png" null: >/dev/null 2>&1
}
pictures() {
  [ "$system" = linux ] || return 0
  GDK_SCALE=2
  export GDK_SCALE
  open_viewer "$demo"
  keep_picture dense
  check "the pictures are drawn for the screen" has_fine_pictures
  close_viewer
  as_usual
}

put_back() {
  as_usual
  finish
}
trap put_back EXIT

start_screen
forget_settings
as_usual
japanese
colours
pictures
dialogs_fit
report
