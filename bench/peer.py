#!/usr/bin/python3
"""The same jobs by ezdxf, the library most scripts use on drawings: peer.py JOB IN.dxf OUT.dxf

JOB is roundtrip (open, save), onelabel (one label over every line, circle and polyline) or labels (one label per text).
A label is what ezdxf can make of it: an XRECORD in the dictionary ZOL_BSYSTEM_LABELS; each entity it refers to gets
the seven XDATA elements of terraSHAPING and the label as persistent reactor.
"""
import sys
import uuid

import ezdxf


def make_label(doc, dictionary, name, entities):
    guid = str(uuid.uuid4())
    record = dictionary.add_xrecord(guid)
    record.reset([(1, guid), (2, name), (90, len(entities)), *((340, entity.dxf.handle) for entity in entities)])
    marks = [(1071, 3), (1071, 0x1000), (1071, 0), (1000, ""), (1000, guid), (1000, name)]
    for entity in entities:
        entity.set_xdata("terraSHAPING", marks)
        entity.append_reactor_handle(record.dxf.handle)


def label_all(job, doc):
    doc.appids.add("terraSHAPING")
    dictionary = doc.rootdict.add_new_dict("ZOL_BSYSTEM_LABELS")
    space = doc.modelspace()
    if job == "onelabel":
        make_label(doc, dictionary, "", list(space.query("LINE CIRCLE LWPOLYLINE")))
    else:
        for text in list(space.query("TEXT")):
            make_label(doc, dictionary, text.dxf.text, [text])


def main(job, source, target):
    doc = ezdxf.readfile(source)
    if job != "roundtrip":
        label_all(job, doc)
    doc.saveas(target)


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[1] not in ("roundtrip", "onelabel", "labels"):
        sys.exit(__doc__.splitlines()[0])
    main(*sys.argv[1:])
