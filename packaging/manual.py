"""Renders the user's manual: manual.py MANUAL.md FOLDER writes manuale.html, manuale.pdf and the pictures into FOLDER.

Debian packages: python3-markdown weasyprint
"""
import logging
import os
import re
import shutil
import sys

import markdown
import weasyprint

PAGE = '''<!DOCTYPE html>
<html lang="it">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>%s</title>
<style>
%s</style>
</head>
<body>
%s
</body>
</html>
'''


def with_captions(html):
    """Turns each paragraph that is only a picture into a figure, with the alternative text as its caption."""
    return re.sub(r'<p>(<img alt="([^"]*)"[^>]*>)</p>', r'<figure>\1<figcaption>\2</figcaption></figure>', html)


def with_own_pictures(html, source, folder):
    """Copies the pictures beside the page and adjusts their paths."""
    def copy(match):
        picture = os.path.join(source, match.group(1))
        shutil.copyfile(picture, os.path.join(folder, os.path.basename(picture)))
        return 'src="%s"' % os.path.basename(picture)
    return re.sub(r'src="([^"]+)"', copy, html)


def main():
    manual, folder = sys.argv[1:3]
    os.makedirs(folder, exist_ok=True)
    with open(manual, encoding='utf-8') as file:
        text = file.read()
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), 'manual.css'), encoding='utf-8') as file:
        style = file.read()
    text = text.replace('\n## ', '\n[TOC]\n\n## ', 1)
    body = markdown.markdown(text, extensions=['tables', 'toc', 'sane_lists'],
                             extension_configs={'toc': {'toc_depth': '2-2', 'title': 'Indice'}})
    body = with_own_pictures(with_captions(body), os.path.dirname(manual), folder)
    page = PAGE % (re.search(r'^# (.*)', text).group(1), style, body)
    html = os.path.join(folder, 'manuale.html')
    with open(html, 'w', encoding='utf-8') as file:
        file.write(page)
    logging.getLogger('weasyprint').setLevel(logging.ERROR)
    logging.getLogger('fontTools').setLevel(logging.ERROR)
    weasyprint.HTML(html).write_pdf(os.path.join(folder, 'manuale.pdf'))


main()
