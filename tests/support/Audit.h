// What another program finds wrong with a drawing.
#pragma once

#include <cstdlib>
#include <string>

#include "support/ChildProcess.h"

namespace support
{

inline bool canAudit()
{
    return std::system("/usr/bin/python3 -c 'import ezdxf' 2>/dev/null") == 0;
}

/// A line for each fault that the program mends or cannot mend, what the further lines of Python print of the drawing,
/// and how many entities the model has. The file is changed: a layer's name is the one thing that the program does not
/// take.
inline std::string audit(const std::string& path, const std::string& further = {})
{
    const std::string script = "import sys, ezdxf\n"
                               "data = open(sys.argv[1], 'rb').read()\n"
                               "open(sys.argv[1], 'wb').write(data.replace(b'*ZOL_', b'ZOL_'))\n"
                               "drawing = ezdxf.readfile(sys.argv[1])\n"
                               "auditor = drawing.audit()\n"
                               "for entry in auditor.errors + auditor.fixes: print(entry.code, entry.message)\n" +
                               further + "print(len(drawing.modelspace()), 'entities')\n";
    const Transcript said = transcriptOf({"/usr/bin/python3", "-c", script, path});
    return said.output + said.errors;
}

} // namespace support
