"""A tool server that does what the Python of its first argument says, in the words below."""

import json
import os
import signal
import subprocess
import sys
import time

sys.stdout.reconfigure(encoding="utf-8", line_buffering=True)


def hear(**expected):
    """Reads a message, which must be the expected one, with any id if none is expected."""
    global heard
    heard = json.loads(sys.stdin.readline())
    assert heard.pop("jsonrpc") == "2.0", heard
    assert heard == {"id": heard.get("id"), **expected} or heard == expected, heard


def answer(**members):
    print(json.dumps({"jsonrpc": "2.0", "id": heard["id"], **members}))


def greet():
    hear(method="initialize", params={
        "protocolVersion": "2025-11-25", "capabilities": {},
        "clientInfo": {"name": "gen_registry_docs", "version": os.environ["VERSION"]}})
    answer(result={"protocolVersion": "1999-12-31"})
    hear(method="notifications/initialized")


def page(tools, more="", **params):
    """Answers with the bytes of tools, and of the members behind them."""
    hear(method="tools/list", params=params)
    print(f'{{"id": {heard["id"]} ,\t"result":{{"_meta":{{"tools":0}},"tools":{tools}{more}}} }}\r')


exec(sys.argv[1])
