# SPDX-License-Identifier: MIT
# Completion of turfctl for bash.

# What a position holds: command and, behind a colon, the option ahead of the word. An answer is a list of words to choose
# from, or a call: names LISTS, folders, files PATTERN.
_turfctl_content() {
  case $1 in
    *:--home | *:--to) echo folders ;;
    *:--output) echo files hlz ;;
    *:--picture) echo files '@(bmp|tga|dds)' ;;
    *:--music) echo files '@(wav|mp3)' ;;
    *:--text) echo files '@(txt|rtf|htm)' ;;
    *:--without) echo names --libraries ;;
    show:* | uninstall:* | move:*) echo names ;;
    compress:* | set-media:* | clear-statistics:*) echo names --courses ;;
    install:*) echo files '@(hlz|hlc|hlb)' ;;
    convert:*) echo folders ;;
    "tree import":* | "tree export":*) echo files reg ;;
    settings:*) echo list get set ;;
    tree:*) echo get set keys delete export import ;;
    :*)
      echo list show install compress uninstall move set-media clear-statistics convert convert-quillon settings tree
      ;;
  esac
}

_turfctl_options() {
  case $1 in
    list) echo --courses --libraries ;;
    install) echo --to ;;
    compress) echo --output --without ;;
    uninstall) echo --library ;;
    move) echo --to --library ;;
    set-media) echo --picture --music --text ;;
  esac
  echo --home --json --yes --no --ask --help
}

# The names of what is installed, one a line: those in LISTS, or all. Asking turfctl would make a home where there is none.
_turfctl_names() {
  local home=$1
  shift
  [[ -e $home/settings.db ]] || return
  # Names with control characters, which JSON writes as escapes, cannot be typed anyhow.
  timeout 5 "${COMP_WORDS[0]/#\~/$HOME}" --home "$home" --no --json list "$@" 2>/dev/null </dev/null |
    sed -nE '/^      "name": /{s/^      "name": "(.*)",?$/\1/;/\\[^"\\]/d;s/\\(.)/\1/g;p}'
}

_turfctl_complete_names() {
  local typed=${cur#[\"\']} name
  [[ $cur == [\"\']* ]] || typed=${typed//\\/}
  COMPREPLY=()
  while IFS= read -r name; do
    [[ $name == "$typed"* ]] && COMPREPLY+=("$name")
  done < <(_turfctl_names "$@")
  # Readline quotes what it takes for the names of files.
  compopt -o filenames
}

_turfctl() {
  local cur prev words cword
  _init_completion -n : || return

  local home=${XDG_DATA_HOME:-$HOME/.local/share}/turfdesk command='' i
  home=${TURFDESK_HOME:-$home}
  for ((i = 1; i < cword; i++)); do
    case ${words[i]} in
      --home) home=${words[++i]/#\~/$HOME} ;;
      --to | --output | --without | --picture | --music | --text) ((i++)) ;;
      -*) ;;
      *)
        case $command in
          '') command=${words[i]} ;;
          settings | tree) command+=" ${words[i]}" ;;
        esac
        ;;
    esac
  done

  if [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_turfctl_options "$command")" -- "$cur")
    return
  fi
  [[ $prev == -* ]] || prev=
  local content
  read -ra content < <(_turfctl_content "$command:$prev")
  case ${content[0]-} in
    '') ;;
    names) _turfctl_complete_names "$home" "${content[@]:1}" ;;
    folders) _filedir -d ;;
    files) _filedir "${content[1]}" ;;
    *) mapfile -t COMPREPLY < <(compgen -W "${content[*]}" -- "$cur") ;;
  esac
} && complete -F _turfctl turfctl
