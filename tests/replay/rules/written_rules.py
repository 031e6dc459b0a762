#!/usr/bin/env python3
"""written_rules.py REPLAY: names, texts and addresses are the same in the source and in the written project, as another
parser than the program's reads both."""
import base64
import re
import sys
from xml.parsers import expat

from asking import answered_by, document, filmed, project

CHARACTERS = ["&", "<", ">", '"', "'", "\n", "\t", "\r", "\r\n", "]]>", "&amp;", "-->", "%", "é", "😀", "\x7f", "\x85", "\u2028"]


def contents(xml):
    """All attribute values and the exact text of all elements with text that contain the sign "¶", by the first number
    before it. Names include their namespaces."""
    texts, open_elements = {}, [["", "", False]]

    def keep(text, element=""):
        for key in re.findall("([0-9]+)¶", text)[:1]:
            texts.setdefault(key, set()).add((element, text.removesuffix(" Corvane")))

    def text(characters, is_text=True):
        open_elements[-1][1] += characters
        open_elements[-1][2] |= is_text and bool(characters.strip(" \t\n"))

    def start(name, attributes):
        for value in attributes.values():
            keep(value, name)
        open_elements.append([f"<{name} {sorted(attributes.items())}>", "", name.split(" ")[-1] in ("note", "text", "text-style")])

    def end(name):
        tag, inside, holds_text = open_elements.pop()
        if holds_text:
            keep(inside)
        text(f"{tag}{inside}</{name}>", False)

    parser = expat.ParserCreate(namespace_separator=" ")  # refuses a prefix without an address
    parser.StartNamespaceDeclHandler = lambda prefix, address: keep(address or "")
    parser.StartElementHandler, parser.EndElementHandler, parser.CharacterDataHandler = start, end, text
    parser.Parse(xml, True)
    return texts


def everywhere(value, text):
    """A document that has `value` in every attribute and address that is carried over, and `text` in every text."""
    count = iter(range(1000))

    def a(name):
        return f'{name}="{next(count)}¶{value}"'

    def t(before="", after=""):
        return f"{before}{next(count)}¶{text}{after}"

    mixed = [t(), t(" ", " <b> <i> x</i> </b>\n "), t("<b><i>", "</i></b> <b/>"), t(" <b/><i> <b/> </i>\n"),
             f"<p:b {a('xmlns:p')} {a('p:c')} {a('xmlns')} {a('xml:lang')}><!-- c --><?d e?>{t()}</p:b>{t()}"]
    notes = "".join(f"<note>{each}</note>" for each in mixed)
    unknown = "".join(f'<q:x xmlns:q="u" {a("y")}>{each}</q:x>' for each in mixed[:2] + mixed[3:])
    in_clip = f'''{notes}<mc-source angleID="A¶{value}" {a('xmlns:s')}><s:x/><audio-role-source {a('role')}/><filter-video {a('name')}>
        <data>{t()}</data></filter-video></mc-source><mc-source angleID="B" xmlns=""><adjust-crop {a('mode')}/></mc-source>
        <title {a('name')} ref="av"><text><text-style {a('ref')}>{t()}</text-style> <text-style>{t()}</text-style></text>
        </title><marker {a('value')}><x>{t()}</x></marker><keyword {a('value')} {a('xmlns:k')}/>
        <rating {a('name')} {a('note')}><x {a('y')}/>{t()}</rating><filter-audio {a('name')}/>
        <metadata><md {a('key')} {a('value')}/><md><array><string>{t()}</string></array></md>{unknown}</metadata>'''
    angles = filmed("40s").replace('"A"', f'"A¶{value}"')
    resources = f"<effect id='e' {a('name')} {a('uid')} {a('xmlns')}/><x><string>{t()}</string></x>{unknown}"
    xml = document(angles, in_clip=in_clip, resources=resources, version=f' {a("version")} {a("xmlns:r")} {a("xmlns")}')
    xml = xml.replace("<library", f"<library {a('xmlns:l')} {a('left')}").replace("<event", f"<event {a('xmlns:e')}")
    xml = xml.replace('"Concert"', f'"Concert¶{value}" {a("id")}').replace("<sequence", f"{notes}<sequence {a('keywords')}")
    return xml.replace("<spine", f"{notes}<spine {a('name')}").replace('name="MC"', f"{a('name')} {a('xmlns:m')}")


def written(name, xml, character):
    source = contents(xml)
    del source[re.search('left="([0-9]+)', xml)[1]]  # in the library, which is not carried over
    camera = "A¶" + character

    def read(answer):
        try:
            given = contents(base64.b64decode(answer["export"][0]["xml"]))
        except expat.ExpatError as error:
            return str(error)
        return {key: (given.get(key), expected) for key, expected in source.items() if given.get(key) != expected}
    project(name, read, {}, xml, cutLists=[{"audio": camera, "cuts": [
        {"id": f"0000000{n}-0000-4000-8000-000000000000", "angle": angle, "start": n * 250, "duration": 250}
        for n, angle in enumerate([camera, "B", "B", camera])]}])


for character in CHARACTERS:
    references = "".join(f"&#{ord(each)};" for each in character)
    entity = "<!DOCTYPE fcpxml [<!ENTITY e '" + references.replace("&", "&#38;") + "'>]><fcpxml"
    written(f"{character!r} as a reference", everywhere(references, references), character)
    value = references if character in "\r\n\t" else "&e;"  # the parser wrongly turns those into spaces
    written(f"{character!r} in an entity", everywhere(value, "&e;").replace("<fcpxml", entity, 1), character)
    if character not in ("\r", "\r\n"):
        sections = "".join(f"<![CDATA[{each}]]>" for each in character)
        written(f"{character!r} in CDATA", everywhere(references, f"{sections} <![CDATA[]]>"), character)

defaults = "".join(f"<!ATTLIST {name} by-default CDATA '{900 + n}¶&#38;quot;'>" for n, name in enumerate((
    "resources", "project", "sequence", "mc-clip", "note", "filter-video", "keyword", "md")))
written("attributes by default", everywhere("x", "x").replace("<fcpxml", f"<!DOCTYPE fcpxml [{defaults}]><fcpxml", 1), "x")
entity = "<!DOCTYPE fcpxml [<!ENTITY e '<b/><b xmlns=\"x\"><c/></b>'>]><fcpxml"
written("elements in an entity", everywhere("x", "&e;").replace("<fcpxml", entity, 1), "x")

answered_by(sys.argv[1])
