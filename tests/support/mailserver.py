"""A mail server for one test (see mailserver.h).

It prints its port, then obeys the words on its standard input, one a line, with one line of JSON each:

    messages    all messages that it has taken
    await       as soon as it has reached the place where the options --hang, --close or --stall end a conversation
    goon        goes on after --stall
    ended       as soon as every conversation is over: for each one that went on, whether it had the message's end
"""
import argparse
import asyncio
import email
import email.policy
import json
import logging
import ssl
import sys
import warnings

from aiosmtpd.smtp import SMTP, AuthResult, LoginPassword

options = argparse.ArgumentParser()
options.add_argument("--certificate")
options.add_argument("--key")
options.add_argument("--implicit", action="store_true")
options.add_argument("--starttls", action="store_true")
options.add_argument("--account", help="USER:PASSWORD that every client must give")
options.add_argument("--refuse", action="append", default=[], help="a recipient, a sender, or 'message'")
options.add_argument("--ascii", action="store_true", help="no addresses beyond ASCII")
options.add_argument("--unsaid", action="store_true", help="does not say that it takes addresses beyond ASCII")
options.add_argument("--hang", choices=["greeting", "data", "end", "quit"])
options.add_argument("--close", choices=["greeting", "data", "end"])
options.add_argument("--stall", action="store_true", help="read no further than the beginning of a message")
options = options.parse_args()

# It says that accounts without encryption are unwise, and which clients turn away; a test asks for both.
warnings.simplefilter("ignore")
logging.disable()

messages = []
reached = asyncio.Event()
resumed = asyncio.Event()
ends = []
open_conversations = set()
all_over = asyncio.Event()


class Handler:
    async def handle_EHLO(self, server, session, envelope, hostname, responses):
        session.host_name = hostname
        return [line for line in responses if not (options.unsaid and line.endswith("SMTPUTF8"))]

    async def handle_MAIL(self, server, session, envelope, address, mail_options):
        if address in options.refuse:
            return "553 5.7.1 This sender is refused"
        envelope.mail_from = address
        envelope.mail_options.extend(mail_options)
        return "250 OK"

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if address in options.refuse:
            return "550 5.1.1 There is nobody of that name"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        await end_here(server, "end")
        if "message" in options.refuse:
            return "554 5.7.1 This message is refused"
        messages.append({
            "from": envelope.mail_from,
            "to": envelope.rcpt_tos,
            "options": envelope.mail_options,
            "text": envelope.content.decode("latin-1"),
            "read": as_read(envelope.content),
            "encrypted": session.ssl is not None or options.implicit,
            "user": session.auth_data.decode() if session.auth_data else "",
        })
        return "250 OK"


def as_read(content):
    """What a mail program shows of a message."""
    message = email.message_from_bytes(content, policy=email.policy.SMTPUTF8)
    shown = {name: str(message[name]) for name in message.keys()}
    shown["body"] = message.get_content()
    shown["defects"] = "; ".join(str(d) for part in [message, *message.values()] for d in part.defects)
    return shown


async def end_here(server, place):
    if options.hang == place:
        reached.set()
        await asyncio.Event().wait()
    if options.close == place:
        reached.set()
        server.transport.abort()


class Server(SMTP):
    def connection_made(self, transport):
        open_conversations.add(self)
        all_over.clear()
        super().connection_made(transport)

    def connection_lost(self, error):
        super().connection_lost(error)
        asyncio.get_event_loop().call_soon(self.over)

    def over(self):
        open_conversations.discard(self)
        if not open_conversations:
            all_over.set()

    async def smtp_DATA(self, arg):
        if options.stall:
            return await self.stall()
        if options.hang == "data" or options.close == "data":
            await self.push("354 Go on")
            return await end_here(self, "data")
        return await super().smtp_DATA(arg)

    async def stall(self):
        await self.push("354 Go on")
        reached.set()
        await resumed.wait()
        last = b""
        try:
            while line := await self._reader.readline():
                last = line
                if line == b".\r\n":
                    break
        finally:
            ends.append(last == b".\r\n")
            self.transport.abort()

    async def smtp_QUIT(self, arg):
        await end_here(self, "quit")
        return await super().smtp_QUIT(arg)


class Mute(asyncio.Protocol):
    def connection_made(self, transport):
        reached.set()
        if options.close == "greeting":
            transport.close()


def authenticator(server, session, envelope, mechanism, data):
    if not isinstance(data, LoginPassword):
        return AuthResult(success=False)
    given = data.login.decode() + ":" + data.password.decode()
    return AuthResult(success=given == options.account, auth_data=data.login, handled=False)


def tls():
    if not options.certificate:
        return None
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(options.certificate, options.key)
    return context


def new_server():
    if options.hang == "greeting" or options.close == "greeting":
        return Mute()
    arguments = {"hostname": "mail.example.org", "enable_SMTPUTF8": not options.ascii, "loop": asyncio.get_event_loop()}
    if options.starttls:
        arguments["tls_context"] = tls()
    if options.account:
        arguments.update(auth_required=True, auth_require_tls=False, authenticator=authenticator)
    return Server(Handler(), **arguments)


async def obey(word):
    if word == "messages":
        return messages
    if word == "await":
        await reached.wait()
    elif word == "goon":
        resumed.set()
    elif word == "ended":
        await all_over.wait()
        return ends
    return "ok"


async def main():
    loop = asyncio.get_running_loop()
    server = await loop.create_server(new_server, "127.0.0.1", 0, ssl=tls() if options.implicit else None)
    print(server.sockets[0].getsockname()[1], flush=True)
    words = asyncio.StreamReader()
    await loop.connect_read_pipe(lambda: asyncio.StreamReaderProtocol(words), sys.stdin)
    while line := await words.readline():
        print(json.dumps(await obey(line.decode().strip())), flush=True)


asyncio.run(main())
