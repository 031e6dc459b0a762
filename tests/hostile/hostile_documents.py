#!/usr/bin/env python3
"""hostile_documents.py CORVANE_EDIT [PART OF A NAME]: hands documents that were made against the parser to the
command, and prints seconds, peak memory and answer of each. Fails when an answer is another than it should be, when a job
has to be ended, and when expat does not accept what was written. Times and sizes are printed, not judged.

hostile_documents.py make FOLDER only makes them, since a program is said to have used at least the memory of the one
that started it.
"""
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import threading
from xml.parsers import expat

WRITTEN = "written"


def broken(path):
    """What expat, with and without namespaces, says against it."""
    try:
        for parser in expat.ParserCreate(), expat.ParserCreate(namespace_separator=" "):
            with open(path, "rb") as written:
                parser.ParseFile(written)
    except expat.ExpatError as error:
        return str(error)
    return None


def last_words(said, document):
    return said.strip().split("\n")[-1].removeprefix(f"corvane-edit: {document}: ")


def answered(program, document):
    """(seconds, megabytes, what it says); what it writes must be accepted by expat and by itself."""
    with tempfile.TemporaryDirectory() as scratch, open(f"{scratch}/said", "w+", errors="replace") as said:
        job = os.posix_spawn(program, [program, document, scratch], os.environ, file_actions=[
            (os.POSIX_SPAWN_DUP2, said.fileno(), stream) for stream in (1, 2)])
        alarm = threading.Timer(60, os.kill, (job, 9))
        alarm.start()
        _, status, used = os.wait4(job, 0)
        alarm.cancel()
        said.seek(0)
        answer = f"ended by signal {status}" if status & 127 else last_words(said.read(), document)
        for file in pathlib.Path(scratch).glob("*.fcpxml") if status == 0 else []:
            again = subprocess.run([program, file, scratch], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            last = last_words(again.stdout, file)
            accepted = not again.returncode or last.startswith("For this prototype, export a timeline containing one uncut")
            answer = WRITTEN + (f", but expat says: {broken(file)}" if broken(file) else "" if accepted else f", but then: {last}")
    return used.ru_utime + used.ru_stime, used.ru_maxrss // 1024, answer


def row(program, name, document, expected):
    """Prints it, and tells whether the answer is another than it should be."""
    seconds, memory, answer = answered(program, document)
    expected = [expected] if isinstance(expected, str) else expected
    right = answer in expected if answer.startswith(WRITTEN) else answer.startswith(tuple(expected))
    print("" if right else "WRONG: ", name, f" | {os.path.getsize(document):,} bytes | {seconds:.2f} s | {memory} MB | ",
          answer[:200], sep="", flush=True)
    return not right


def main(program, part=""):
    with tempfile.TemporaryDirectory() as scratch, concurrent.futures.ThreadPoolExecutor(2) as pool:
        subprocess.run([sys.executable, "-B", __file__, "make", scratch], check=True)
        members = [each for each in json.loads(pathlib.Path(scratch, "members").read_text()) if part in each[0]]
        faults = sum(pool.map(lambda member: row(program, *member), members))
    print(f"{len(members)} documents, {faults} answered in another way than they should be")
    return faults > 0


if sys.argv[1] != "make":
    sys.exit(main(*sys.argv[1:]))

sys.path.append(str(pathlib.Path(__file__).parent.parent / "replay/rules"))
from asking import angle, clip, document, filmed  # noqa: E402

DOCTYPE, ELEMENTS = "The document type of this file ", "Elements of this file are nested more than 256 levels deep (line "
PARAMETER, LONG, MANY, GROWS = (DOCTYPE + words for words in (
    "uses the parameter entity", "is longer than 64 kB (line ", "has more than 200 declarations (line ", "makes it grow too far (line "))
UNKNOWN, DAMAGED, LARGE = ("This file does not say what the entity “&", "This file is damaged at line ",
                           "What this file holds at line ")
GROWS = (GROWS, LARGE)  # later parsers count for themselves, too
RULES, UNCLEAR = "The name “", "It is unclear what the prefix of “"
EMPTY, NO_XML, TAG = "This file is empty. ", "This file is not XML. ", "A tag of this file is too long (line "
members = []  # name, path, how the answer begins


def member(name, expected, data):
    path = pathlib.Path(sys.argv[2], f"{len(members)}.fcpxml")
    path.write_bytes(data if isinstance(data, bytes) else data.encode())
    members.append((name, str(path), expected))


def project(doctype="", inside="", head='<?xml version="1.0" encoding="UTF-8"?>', name="Concert"):
    text = document(filmed("600s"), "600s", in_clip='<mc-source angleID="A"/>' + inside)
    return text.replace('<?xml version="1.0" encoding="UTF-8"?>', head + doctype).replace("Concert", name)


def subset(declarations, inside="", **more):
    return project(f"<!DOCTYPE fcpxml [{declarations}]>", inside, **more)


def note(text):
    return f"<note>{text}</note>"


def names(count, between):
    return between.join(f"n{n:x}" for n in range(count))


def tens(first, last="", sign="&"):
    """Eleven entities, each of them ten times the one before."""
    kind = "% " if sign == "%" else ""
    return f'<!ENTITY {kind}e0 "{first}">' + "".join(
        f'<!ENTITY {kind}e{n} "{f"{sign}e{n - 1};" * 10}">' for n in range(1, 12)) + last


def utf16(text):
    return text.replace("UTF-8", "UTF-16").encode("utf-16")


# What the document type makes of it.
enumeration = f"<!ATTLIST note a ({names(100_000, '|')}) #IMPLIED>"
parameters = '<!ENTITY % e0 "<!ELEMENT x ANY>">' + "".join(
    f'<!ENTITY % e{n} "{f"&#37;e{n - 1};" * 10}">' for n in range(1, 12)) + "%e11;"
member("eleven parameter entities", PARAMETER, subset(parameters))
member("the same in UTF-16", PARAMETER, utf16(subset(parameters)))
member("the same after a broken declaration", DAMAGED, subset(parameters, head='<?xml version="1.0"encoding="UTF-8"?>'))
member("a reference to one that is declared elsewhere", PARAMETER + " “%q;” (line 2, ",
       project('<!DOCTYPE fcpxml SYSTEM "x.dtd" [\n%q;]>'))
member("an enumeration of 100,000 names", LONG, subset(enumeration))
member("the same in UTF-16", LONG, utf16(subset(enumeration)))
member("the same after a broken declaration", DAMAGED, subset(enumeration, head='<?xml version="1.0" foo?>'))
member("an enumeration of 60 kB", WRITTEN, subset(f"<!ATTLIST note a ({names(11_000, '|')}) #IMPLIED>"))
member("a content model in 10,000 brackets", LARGE, subset(f"<!ELEMENT x {'(' * 10_000}a{')' * 10_000}>"))
member("a comment of 70 kB", LONG, subset(f"<!--{'x' * 70_000}-->"))
member("a comment of 9 MB before it", WRITTEN, project(f"<!--{'x' * 9_000_000}-->"))
member("a document type without an end", LONG, project("<!DOCTYPE fcpxml [" + " " * 3_000_000))
member("201 declarations", MANY, subset("".join(f"<!ELEMENT n{n} ANY>" for n in range(201))))
member("400 default attributes of 1,000 elements", MANY,
       subset("".join(f'<!ATTLIST md a{n} CDATA "x">' for n in range(400)), "<md/>" * 1000))
member("199 default attributes of 100,000 elements", GROWS,
       subset("<!ATTLIST md " + " ".join(f'a{n} CDATA ""' for n in range(199)) + ">", "<md/>" * 100_000))
member("a default attribute of 60 kB, of 10,000 elements", GROWS,
       subset(f'<!ATTLIST md a CDATA "{"x" * 60_000}">', "<md/>" * 10_000))
member("a default attribute", WRITTEN, subset('<!ATTLIST note a CDATA "x">', note("n")))
member("entities ten times each other, in text", GROWS, subset(tens("0123456789"), note("&e11;")))
member("the same in an attribute", GROWS, subset(tens("0123456789"), name="&e11;"))
member("two entities that use each other", LARGE, subset('<!ENTITY a "&b;"><!ENTITY b "&a;">', note("&a;")))
member("60 kB 100,000 times in text", GROWS, subset(f'<!ENTITY e "{"x" * 60_000}">', note("&e;" * 100_000)))
member("15,000 elements 1,000 times", GROWS, subset(f'<!ENTITY e "{"<b/>" * 15_000}">', "&e;" * 1000))
member("100 kB that stand for 4 million elements", GROWS, subset(
    f'<!ENTITY e "{"<b/>" * 200}">' + "".join(f'<!ENTITY f{n} "{"&e;" * 9}">' for n in range(100)),
    "".join(f"&f{n % 100};" for n in range(2000)) + "x" * 100_000))
member("entities in each other, 2,000 levels", (ELEMENTS, LARGE),
       subset("".join(f'<!ENTITY e{n} "{"<b>" * 100}&e{n + 1};{"</b>" * 100}">' for n in range(20)) +
              '<!ENTITY e20 "x">', "&e0;"))
member("200 levels and an entity of 100, used once more there", ELEMENTS, subset(
    f'<!ENTITY e "{"<b>" * 100}{"</b>" * 100}">', "<x>&e;</x>" + "<b>" * 200 + "&e;" + "</b>" * 200))
member("240 levels with one", WRITTEN, subset(
    f'<!ENTITY e "{"<b>" * 100}{"</b>" * 100}">', "<x>&e;</x>" + "<b>" * 140 + "&e;" + "</b>" * 140))

# What tags make of it.
member("100,000 attributes", TAG, project(inside="<md " + names(100_000, '="" ') + '=""/>'))
member("the same in UTF-16", TAG, utf16(project(inside="<md " + names(100_000, '="" ') + '=""/>')))
member("100,000 namespaces", TAG, project(inside="<md " + " ".join(f'xmlns:a{n}="u"' for n in range(100_000)) + "/>"))
member("501 attributes", "An element of this file has more than 500 attributes (line ", project(inside="<md " + names(501, '="" ') + '=""/>'))
for count, expected in {100: WRITTEN, 102: "An element of this file stands in more than 100 namespaces (line "}.items():
    spaces = [" ".join(f'xmlns:a{level}_{n}="u"' for n in range(count // 2)) for level in "xy"]
    member(f"{count} namespaces around one element", expected, project(inside=note(f"<md {spaces[0]}><md {spaces[1]}/></md>")))
member("100,001 different names", "This file has more than 100,000 different names",
       project(inside="".join(f"<n{n}/>" for n in range(1_000_000))))
member("300 levels", ELEMENTS,
       project(inside="<md>" * 300 + "</md>" * 300))
member("100,001 identifiers", ("This file has more than 100,000 different names, identifiers and short texts (line ", WRITTEN),
       project(inside="".join(f'<b xml:id="a{n}"/>' for n in range(200_000))))  # later parsers do not count them
for kind, text in {"attribute": '<md a="{}"/>', "comment": "<!--{}-->", "CDATA": "<![CDATA[{}]]>", "text": "<md>{}</md>",
                   "instruction": "<?x {}?>", "name": "<n{}/>"}.items():
    member(f"{kind} of 12 MB", LARGE if kind != "text" else "An element of this file holds more than 10 MB of text",
           project(inside=text.format("x" * 12_000_000)))
member("12 MB of characters as references", LARGE, project(inside='<md a="' + "x&amp;" * 2_000_000 + '"/>'))

# What nothing says what it is.
elsewhere = '<!DOCTYPE fcpxml SYSTEM "fcpxml.dtd">'
member("&nbsp; in a note", UNKNOWN + "nbsp;” stands for (line 9, ", project("\n" + elsewhere, note("a&nbsp;b")))
member("in a name", UNKNOWN + "nbsp;” stands for (line 6, ", project(elsewhere, name="a&nbsp;b"))
member("without any document type", UNKNOWN, project(inside=note("&nbsp;")))
member("in the text of another", UNKNOWN + "b;”", project('<!DOCTYPE fcpxml SYSTEM "s" [<!ENTITY a "x&b;">]>', note("&a;")))
member("in a default attribute", UNKNOWN, project('<!DOCTYPE fcpxml SYSTEM "s" [<!ATTLIST note a CDATA "&b;">]>', note("")))
for place, text in {"text": note("&e;"), "an attribute": '<md a="&e;"/>', "another": note("&f;")}.items():
    member(f"the text of another file in {place}", UNKNOWN + "e;”",
           subset('<!ENTITY e SYSTEM "file:///dev/zero"><!ENTITY f "&e;">', text))
member("one that is no text", UNKNOWN, subset('<!NOTATION n SYSTEM "n"><!ENTITY e SYSTEM "e" NDATA n>', note("&e;")))
member("an entity in text and attributes", WRITTEN,
       subset('<!ENTITY e "x &#38;amp; <b> y</b>"><!ENTITY f "&#38;lt;&#34;">', note("&e;&f;") + '<md a="&f;"/>'))

# Names that other readers refuse.
for name in (":a", "a:", "a:b:c", "a:1"):
    member(f"an element {name}", RULES + name[:2], project(inside=note(f"<{name} xmlns:a='u'/>")))
    member(f"an attribute {name}", RULES + name[:2], project(inside=note(f"<b xmlns:a='u' {name}='1'/>")))
    member(f"a default attribute {name}", RULES + name, subset(f"<!ATTLIST b {name} CDATA '1'>", note("<b xmlns:a='u'/>")))
member("a colon in an instruction", RULES + "a:b” breaks the rules of XML (line 8, ", project(inside=note("<?a:b c?>")))
member("a colon in an entity", RULES + "a:b”", subset('<!ENTITY a:b "x">', note("&a:b;")))
member("an attribute twice by two prefixes", RULES + "c”", project(inside=note("<b xmlns:p='u' xmlns:q='u' p:c='1' q:c='2'/>")))
for prefix, address in {":p": "", ":xml": "u", ":xmlns": "u", ":q": "http://www.w3.org/2000/xmlns/", "": "http://www.w3.org/XML/1998/namespace"}.items():
    member(f"xmlns{prefix}='{address}'", RULES + "xmlns", project(inside=note(f"<b xmlns{prefix}='{address}'/>")))
    member("the same by default", (RULES + "xmlns", WRITTEN), subset(f"<!ATTLIST b xmlns{prefix} CDATA '{address}'>", note("<b/>")))  # or is left out
for inside in ("<p:b/>", "<b p:b='1'/>", "<a xmlns:p='u'/><p:b/>"):
    member(f"no declaration around {inside}", UNCLEAR + "p:b” stands for (line 8, ", project(inside=note(inside)))
    member("the same in an entity that stands in one", UNCLEAR + "p:b”",
           subset(f'<!ENTITY e "{inside}">', note("<a xmlns:p='v'>&e;</a>")))
member("nor around a default attribute", UNCLEAR + "p:b”", subset("<!ATTLIST b p:b CDATA '1'>", note("<b/>")))
member("a prefix in the project", UNCLEAR + "p:b” stands for (line 6, ", project().replace("<project", "<project p:b='1'"))
member("addresses that are none", WRITTEN, project(inside=note("<p:b xmlns:p='../u' xmlns='a&amp;b'/>")))

# What is no XML.
whole = project().encode()
for name, data in {"nothing": b"", "blanks": b" \n\t " * 50, "a mark and nothing": b"\xef\xbb\xbf", "zeros": bytes(100_000)}.items():
    member(name, EMPTY, data)
for name, data in {"a picture": b"\x89PNG\r\n\x1a\n" + bytes(64), "text": b"not xml", "three letters": b"abc",
                   "JSON": b'{"a": "<b>"}', "an archive": b"PK\3\4" + b"<" * 64, "text in UTF-16": "no".encode("utf-16")}.items():
    member(name, NO_XML, data)
for name, data in {"half of it": whole[:600], "its first sign": b"<", "two roots": whole + b"<a/>", "a web page": b"<html><p>a<br></html>",
                   "a zero in it": whole.replace(b"Concert", b"Con\0cert"), "bad UTF-8": whole.replace(b"Concert", b"\xff"),
                   "&#0;": whole.replace(b"Concert", b"&#0;"), "&#8;": whole.replace(b"Concert", b"&#8;"),
                   "&#xD800;": whole.replace(b"Concert", b"&#xD800;"), "half of UTF-16": utf16(project())[:901],
                   "a section in the document type": subset("<![IGNORE[ x ]]>").encode(),
                   "a document type without an end": subset("<!ELEMENT x ANY>").replace("]>", "").encode(),
                   "a content model without an end": subset("<!ELEMENT x (a").encode(), "a name for HTML": whole.replace(b"UTF-8", b"HTML"),
                   "an unknown encoding": whole.replace(b"UTF-8", b"UTF-99")}.items():
    member(name, DAMAGED, data)

# What the program makes of it, beyond the parser: each piece of the edit repeats parts of the clip, names and ids are looked for.
LARGER = "The finished project would be larger than 512 MB, so it was not written. "


def lasting(seconds, inside="", angles=None, resources=""):
    return document(angles or filmed(f"{seconds}s"), f"{seconds}s", resources, '<mc-source angleID="A"/>' + inside)


def camera_names(count, size=1):
    return "<metadata>" + "".join(
        f'<md key="com.apple.proapps.mio.cameraName" value="{n:x}{"x" * (size - 1)}"/>' for n in range(count)) + "</metadata>"


many = range(20_000)
member("20,000 tracking shapes", WRITTEN,
       lasting(600, '<mc-source angleID="A">' + "".join(f'<tracking-shape id="t{n}"/>' for n in many) + "</mc-source>").replace(
           '<mc-source angleID="A"/>', ""))
fades = '<param name="amount">' + "<b/>" * 100_000 + '<fadeIn type="easeIn" duration="1s"/>' * 40_000 + "</param>"
member("40,000 fades", WRITTEN, lasting(60, f"<adjust-volume>{fades}</adjust-volume>"))
member("10,000 clips of 10,000 camera names", WRITTEN, lasting(
    600, angles=angle("A", clip("0s", "600s") + ('<asset-clip ref="n" offset="0s" duration="1s"/>' * 10_000)) + angle("B", clip("0s", "600s")),
    resources=f'<asset id="n" duration="9s" hasVideo="1" hasAudio="1" src="f">{camera_names(10_000)}</asset>'))
member("camera names of 1 MB in each of 200 angles", "Camera 16 has media", lasting(
    600, angles="".join(angle(n, clip("0s", "600s").replace('"av"', '"n"')) for n in range(200)),
    resources=f'<asset id="n" duration="9s" hasVideo="1" hasAudio="1" src="f">{camera_names(1_000, 1_000)}</asset>'))
member("30,000 uses of a compound clip behind 100,000 others", "Camera C uses compound clips inside each other", lasting(
    600, angles=filmed("600s") + angle("C", '<ref-clip ref="c"/>' * 30_000),
    resources=f'<media id="c">{"<b/>" * 100_000}<sequence><spine>{clip("0s", "1s")}</spine></sequence></media>'))
crowded = names(490, '="" ') + '=""'
nested = "".join(f'<media id="c{n + 1}"><sequence><spine>' + f'<ref-clip ref="c{n}"/>' * 2 + "</spine></sequence></media>" for n in range(16))
for kind, inside in {"200 gaps of 490 attributes": f"<gap {crowded}/>" * 200, "600,000 comments": "<!---->" * 600_000,
                     "an element with a long name": f"<{'n' * 49_000}/>",
                     "a clip with a name of 4 MB": clip("0s", "1s", f'name="{"x" * 4_000_000}"'),
                     "a reference of 4 MB": f'<ref-clip ref="{"x" * 4_000_000}"/>',
                     "a clip with 200 settings of 490 attributes": '<asset-clip ref="av">' + f'<conform-rate {crowded} scaleEnabled="0"/>' * 200 + "</asset-clip>"}.items():
    member(f"{kind} in 16 compound clips", "Camera C uses compound clips inside each other", lasting(
        600, angles=filmed("600s") + angle("C", '<ref-clip ref="c16"/>'),
        resources=f'<media id="c0"><sequence><spine>{inside}</spine></sequence></media>{nested}'))
member("a name of an angle of 1 MB over a day", "Camera BBB", lasting(86_400, angles=filmed("86400s", ["A", "B" * 1_000_000])))
member("a note of 5 MB over two hours", LARGER, lasting(7_200, note("x" * 4_900_000)))
member("40,000 keywords over two hours", LARGER, lasting(7_200, "".join(f'<keyword value="k{n}"/>' for n in range(40_000))))
member("40 million seconds", "The rough edit would have more than 1,000,000 clips.", lasting(39_999_999))
member("a million elements 200 levels deep", WRITTEN, lasting(60, resources="<b>" * 200 + "<b/>" * 1_000_000 + "</b>" * 200))

pathlib.Path(sys.argv[2], "members").write_text(json.dumps(members))
