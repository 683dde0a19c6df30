#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the benchmark documents, the same bytes on every run.

    make_corpus.py [--mb N] OUTPUT_DIR [record|text|small]...

record.xml  ~50 MB of records: elements with 2 to 4 attributes, prefixes and
            namespaces, short text, comments, entity and character references
            and some non-ASCII text.
text.xml    ~50 MB of prose: long paragraphs with mixed content and CDATA.
small.xml   ~4 KB of records, for the cost of one load or one call.
Without names, all three are written. --mb sets the size of record.xml and
text.xml in MB (50 unless given): the same documents, ended after N MB.
"""
import os
import random
import sys

MB = 1 << 20

WORDS = ("the of and to in is that for it as with was on be by at this from or an are which "
         "document element attribute parser stream record value number order market river "
         "station library window garden letter morning evening quiet quickly slowly bright "
         "north south harbour mountain village engine signal answer reason").split()
# Non-ASCII words: Latin-1, beyond Latin-1, and outside the BMP.
WORDS_INTL = ["café", "crème", "naïve", "Straße", "élan", "smörgåsbord", "Ελλάδα", "Москва",
              "東京", "€uro", "naïveté", "𝄞clef"]
KINDS = ["alpha", "beta", "gamma", "delta", "epsilon"]
STATUS = ["ok", "late", "void", "held"]
CURRENCIES = ["EUR", "USD", "GBP", "CHF", "JPY"]


def sentence(rng, words):
    parts = []
    for _ in range(words):
        if rng.random() < 0.04:
            parts.append(rng.choice(WORDS_INTL))
        else:
            parts.append(rng.choice(WORDS))
    text = " ".join(parts)
    return text[0].upper() + text[1:] + "."


def record(rng, i):
    kind = rng.choice(KINDS)
    attrs = f' id="r{i}" m:kind="{kind}"'
    if rng.random() < 0.6:
        attrs += f' status="{rng.choice(STATUS)}"'
    if rng.random() < 0.3:
        attrs += f' r:rev="{rng.randrange(1, 9)}"'
    name = sentence(rng, rng.randrange(2, 5))[:-1]
    if rng.random() < 0.2:
        name += " &amp; Co"
    price = f"{rng.randrange(1, 10000)}.{rng.randrange(100):02d}"
    out = [f'  <r:record{attrs}>\n',
           f'    <r:name xml:lang="en" r:short="{name[:3]}">{name}</r:name>\n',
           f'    <m:price currency="{rng.choice(CURRENCIES)}" unit="kg">{price}</m:price>\n']
    if rng.random() < 0.3:
        out.append(f'    <!-- batch {i // 100} -->\n')
    if rng.random() < 0.5:
        out.append(f'    <r:note m:ref="n{i}" lang="fr">Prix &lt; {price} &#8364; &#x2014; '
                   f'{rng.choice(WORDS_INTL)}</r:note>\n')
    out.append('  </r:record>\n')
    return "".join(out)


def record_document(path, size, seed):
    rng = random.Random(seed)
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write('<?xml version="1.0" encoding="UTF-8"?>\n'
                '<r:records xmlns:r="urn:zuxml:bench:record" xmlns:m="http://example.org/meta" '
                'xmlns="urn:zuxml:bench:default">\n')
        written, i, chunk = 0, 0, []
        while written < size:
            text = record(rng, i)
            i += 1
            chunk.append(text)
            written += len(text.encode("utf-8"))
            if len(chunk) >= 1000:
                f.write("".join(chunk))
                chunk = []
        f.write("".join(chunk))
        f.write("</r:records>\n")


def paragraph(rng):
    out = []
    for _ in range(rng.randrange(6, 30)):
        text = sentence(rng, rng.randrange(6, 24))
        roll = rng.random()
        if roll < 0.15:
            words = text.split(" ")
            k = rng.randrange(len(words))
            words[k] = f"<em>{words[k]}</em>"
            text = " ".join(words)
        elif roll < 0.22:
            text += f' See <a href="#s{rng.randrange(1000)}">section {rng.randrange(1000)}</a>.'
        elif roll < 0.26:
            text += " Fish &amp; chips &#233;t&#233;."
        out.append(text)
    return " ".join(out)


def text_document(path, size, seed):
    rng = random.Random(seed)
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write('<?xml version="1.0" encoding="UTF-8"?>\n'
                '<book xmlns="urn:zuxml:bench:text" xmlns:x="http://www.w3.org/1999/xlink">\n')
        written, chapter = 0, 0
        while written < size:
            chapter += 1
            parts = [f'<chapter n="{chapter}">\n<title>{sentence(rng, 4)}</title>\n']
            for _ in range(rng.randrange(5, 15)):
                parts.append(f"<p>{paragraph(rng)}</p>\n")
                if rng.random() < 0.2:
                    parts.append("<pre><![CDATA[if (a < b && c > d) { return \"<ok>\"; }\n"
                                 f"for (i = 0; i < {rng.randrange(100)}; ++i) print(i);]]></pre>\n")
            parts.append("</chapter>\n")
            text = "".join(parts)
            f.write(text)
            written += len(text.encode("utf-8"))
        f.write("</book>\n")


def main():
    args = sys.argv[1:]
    size = 50 * MB
    if len(args) >= 2 and args[0] == "--mb":
        size = int(args[1]) * MB
        args = args[2:]
    if not args:
        sys.exit(__doc__)
    out = args[0]
    names = args[1:] or ["record", "text", "small"]
    os.makedirs(out, exist_ok=True)
    for name in names:
        path = os.path.join(out, name + ".xml")
        if name == "record":
            record_document(path, size, 1)
        elif name == "text":
            text_document(path, size, 2)
        elif name == "small":
            record_document(path, 4000, 3)
        else:
            sys.exit(f"unknown document: {name}")


if __name__ == "__main__":
    main()
