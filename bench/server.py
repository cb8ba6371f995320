#!/usr/bin/env python3
"""A server of one tool that takes so many seconds before its first answer. What it is sent is
written to the file of the variable REQUESTS, if there is one, as ask_once reads it.

usage: server.py SECONDS
"""

import json
import os
import sys
import time

REQUESTS = os.environ.get("REQUESTS")

for line in sys.stdin:
    message = json.loads(line)
    if REQUESTS:
        with open(REQUESTS, "a", encoding="utf-8") as file:
            file.write(line if "id" in message else "-" + line)
    if "id" in message:
        time.sleep(float(sys.argv[1]) if message["id"] == 1 else 0)
        result = {"protocolVersion": "2025-11-25", "capabilities": {"tools": {}}, "tools": [{"name": "wait", "inputSchema": {"type": "object"}}]}
        print(json.dumps({"jsonrpc": "2.0", "id": message["id"], "result": result}), flush=True)
