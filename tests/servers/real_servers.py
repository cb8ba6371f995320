"""Real servers: how each is started, and what it answers as it runs."""

import json
import os
import pathlib
import subprocess
import tempfile

MODULES = pathlib.Path(os.environ["SERVERS"])
SERVERS = {  # programs, what they are given, and what they want to be told before they start
    "@antv/mcp-server-chart/build/index.js": ([], {}),
    "@brave/brave-search-mcp-server/dist/index.js": ([], {"BRAVE_API_KEY": "none"}),
    "@hubspot/mcp-server/dist/index.js": ([], {"PRIVATE_APP_ACCESS_TOKEN": "none"}),
    "@kazuph/mcp-taskmanager/dist/index.js": ([], {"TASK_MANAGER_FILE_PATH": "tasks.json"}),
    "@mapbox/mcp-server/dist/index.js": ([], {"MAPBOX_ACCESS_TOKEN": "pk.eyJ1Ijoibm9uZSJ9.none"}),
    "@modelcontextprotocol/server-everything/dist/index.js": ([], {}),
    "@modelcontextprotocol/server-filesystem/dist/index.js": (["."], {}),
    "@modelcontextprotocol/server-memory/dist/index.js": ([], {"MEMORY_FILE_PATH": "memory.json"}),
    "@modelcontextprotocol/server-sequential-thinking/dist/index.js": ([], {}),
    "@notionhq/notion-mcp-server/bin/cli.mjs": ([], {"NOTION_TOKEN": "none"}),
    "@upstash/context7-mcp/dist/index.js": ([], {}),
    "airtable-mcp-server/dist/main.js": ([], {"AIRTABLE_API_KEY": "none"}),
    "figma-developer-mcp/dist/bin.js": (["--stdio"], {"FIGMA_API_KEY": "none"}),
    "firecrawl-mcp/dist/index.js": ([], {"FIRECRAWL_API_KEY": "none"}),
    "hostinger-api-mcp/src/servers/all.js": ([], {"API_TOKEN": "none"}),
    "tavily-mcp/build/index.js": ([], {"TAVILY_API_KEY": "none"}),
}
PLAYWRIGHT = ("@playwright/mcp/cli.js",
              ["--caps=config,network,storage,devtools,vision,pdf,testing"], {})
CHROME = ("chrome-devtools-mcp/build/src/bin/chrome-devtools-mcp.js",
          ["--experimentalVision", "--memoryDebugging", "--experimentalScreencast",
           "--categoryExperimentalWebmcp", "--categoryExtensions",
           "--categoryExperimentalThirdParty"], {"CHROME_DEVTOOLS_MCP_NO_USAGE_STATISTICS": "1"})
ALL = [*((program, *more) for program, more in SERVERS.items()), PLAYWRIGHT, CHROME]


def declared(program, args, env):
    """The server as a registry names it."""
    return {"command": "node", "args": [str(MODULES / program), *args], "env": env}


def run_program(root, *arguments):
    return subprocess.run([os.environ["PROGRAM"], *arguments], cwd=root, check=False, capture_output=True,
                          encoding="utf-8", stdin=subprocess.DEVNULL)


def answer_of(server):
    with tempfile.TemporaryDirectory() as place:
        root = pathlib.Path(place)
        (root / "registry-docs.json").write_text(json.dumps({"server": declared(*server)}))
        done = run_program(root, "--print-model", "--save-tools", "answer.json")
        assert done.returncode == 0, done.stderr
        return json.loads((root / "answer.json").read_text())
