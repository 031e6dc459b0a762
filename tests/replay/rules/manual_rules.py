#!/usr/bin/env python3
"""manual_rules.py REPLAY: what a search of the manual finds, and which manuals are refused."""
import sys

from asking import answered_by, case, refusal


def topic(expected, query="", title="", blocks=()):
    """Expects the refusal of a manual with only this topic, or whether the query finds it."""
    case(f"{query} in {title} {blocks}", "topic",
         lambda answer: refusal(answer["topicMatches"]) or answer["topicMatches"], expected, query=query,
         section={"id": "a", "title": title, "summary": "", "blocks": list(blocks)})


# A search ignores case and accents, and nothing else.
for title, query, found in [
        ("avec Élan", "elan", True), ("elan", "ÉLAN", True), ("e\u0301lan", "\u00e9l", True),
        ("Straße", "STRASSE", True), ("ΟΔΟΣ", "οδος", True), ("İstanbul", "istanbul", True),
        ("Ångström", "angstrom", True), ("각", "각", True), ("text", "", True), ("a  b", "a b", False),
        ("a\nb", "a b", False), ("ab", "a b", False), ("각", "가", False), ("", "x", False)]:
    topic(found, query, title)

REFUSED = "The manual cannot be read: sections[0].blocks[0]."
for block, complaint in [
        ({"kind": None}, "kind is not a text."), ({"kind": "", "text": 1}, "text is not a text."),
        ({"kind": "", "items": ["x", None]}, "items[1] is not a text."),
        ({"kind": "", "links": {}}, "links is not a list.")]:
    topic(REFUSED + complaint, blocks=[block])
for url in ["https://corvane.example", "http://h:8/p?q=1#f", "mailto:a@b.example", "x-a+b.1:y"]:
    topic(True, blocks=[{"kind": "", "links": [{"title": "", "url": url}]}])
for url in ["", "/help", "a.b", "https:", "https://", "https:///p", ":x", "1a:b", "a:b c", "a:\0"]:
    topic(REFUSED + "links[0].url is not a web address.", blocks=[{"kind": "", "links": [{"title": "", "url": url}]}])

answered_by(sys.argv[1])
