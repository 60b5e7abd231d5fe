# Sourced with $WINEPREFIX set: a Windows of its own under wine, made anew. start_windows LINK gives it a COM5 whose device
# is LINK; end_windows ends it, and with it every program that still runs there.
export WINEDEBUG=-all LC_ALL=C.UTF-8

start_windows() {
  [ ! -d "$WINEPREFIX" ] || end_windows
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  # It writes thousands of lines about itself when it is ended; they belong in nobody's log.
  wineserver -p600 >/dev/null 2>&1
  wine wineboot -i >/dev/null 2>&1
  # Never COM1: wine gives it to the machine's first serial port, often its console.
  wine reg add 'HKLM\Software\Wine\Ports' /v COM5 /t REG_SZ /d "$1" /f >/dev/null 2>&1
  # The fonts of Windows are not there; without this wine takes the first one that it finds.
  local font
  for font in 'Segoe UI' 'Tahoma' 'MS Shell Dlg' 'MS Shell Dlg 2' 'MS Sans Serif'; do
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /t REG_SZ /d 'DejaVu Sans' /f >/dev/null 2>&1
  done
  wineserver -k -w >/dev/null 2>&1 || true
  wineserver -p600 >/dev/null 2>&1
}

end_windows() { wineserver -k -w >/dev/null 2>&1 || true; }
