# Sourced by the scripts of this folder: Wine's environment, all of it inside the build folder, without
# a display, sound or messages. Sets `wine_folder`, an absolute path.
wine_folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)/build/wine
mkdir -p "$wine_folder/home" "$wine_folder/runtime"
chmod 700 "$wine_folder/runtime"
printf 'pcm.!default { type null }\nctl.!default { type null }\n' > "$wine_folder/home/.asoundrc"

# Debian keeps Wine's own names in a folder of their own.
export PATH=/usr/lib/wine:$PATH
export WINEPREFIX=$wine_folder/prefix WINEARCH=win64
# Without winedbg nobody asks what to do about a crash, and waits for the answer.
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winedbg.exe=d'
export HOME=$wine_folder/home XDG_RUNTIME_DIR=$wine_folder/runtime
unset DISPLAY WAYLAND_DISPLAY

# Runs a Windows command with a time limit in seconds; whatever has hung is ended for good. Wine's
# language is that of WRT_WINE_LOCALE, as in de_DE.UTF-8, which need not be installed, or else ours.
# Usage: wine_command SECONDS COMMAND [ARGUMENT...]
wine_command() {
  local seconds=$1 locale=()
  shift
  [[ -n ${WRT_WINE_LOCALE-} ]] && locale=("LC_ALL=$WRT_WINE_LOCALE")
  timeout -k 5 "$seconds" env "${locale[@]}" wine64 "$@"
}
