# Sourced once the Wine prefix ($WINEPREFIX) exists. Wine 8 as Debian ships it never reads the fonts of
# fonts-wine in /usr/share/wine/fonts (its font scan, WINEDEBUG=trace+font, covers only the prefix's Fonts
# folder and the fontconfig folders), so Marlett is missing and caption buttons show as the letters
# "0 1 r". The prefix's Fonts folder is always scanned: Wine's own fonts are copied there.
fonts_folder="$WINEPREFIX/drive_c/windows/Fonts"
mkdir -p "$fonts_folder"
for font in /usr/share/wine/fonts/*.ttf; do
    [ -e "$font" ] && [ ! -e "$fonts_folder/${font##*/}" ] && cp "$font" "$fonts_folder/"
done
true
