"""A tool server in one file: it speaks MCP over standard input and output."""

import json
import sys

TOOLS = [
    {"name": "note_add", "description": "Add a note, which the next search finds.",
     "inputSchema": {"type": "object", "required": ["text"], "properties": {
         "text": {"type": "string", "description": "The note"},
         "tags": {"type": "array", "items": {"type": "string"}, "default": []}}}},
    {"name": "note_search", "description": "Find notes, newest first.",
     "inputSchema": {"type": "object", "required": ["query"], "properties": {
         "query": {"type": "string", "description": "Words that the notes hold"},
         "limit": {"type": "integer", "minimum": 1, "default": 10},
         "order": {"enum": ["newest", "oldest"], "default": "newest"}}}},
]
ANSWERS = {
    "initialize": {"protocolVersion": "2025-06-18", "capabilities": {"tools": {}},
                   "serverInfo": {"name": "notes", "version": "1"}},
    "tools/list": {"tools": TOOLS},
}

for line in sys.stdin:
    message = json.loads(line)
    if "id" in message:
        result = ANSWERS[message["method"]]
        print(json.dumps({"jsonrpc": "2.0", "id": message["id"], "result": result}), flush=True)
