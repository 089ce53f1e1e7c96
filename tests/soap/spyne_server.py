"""SOAP 1.1 service for the interop tests: prints "PORT <n>" once it listens on
127.0.0.1, and ends when killed or when its standard input closes."""
import logging
import os
import sys
import threading
from wsgiref.simple_server import WSGIRequestHandler, make_server

from spyne import Application, ComplexModel, Fault, Integer, Boolean, Unicode, Array, rpc, ServiceBase
from spyne.protocol.soap import Soap11
from spyne.server.wsgi import WsgiApplication

NAMESPACE = "urn:vexa:interop"


class Lens(ComplexModel):
    __namespace__ = NAMESPACE
    name = Unicode
    focal = Integer
    zoom = Boolean


class InteropService(ServiceBase):
    @rpc(Unicode, _returns=Unicode)
    def echoString(ctx, text):
        return text

    @rpc(Integer, _returns=Array(Integer))
    def countTo(ctx, limit):
        return list(range(1, limit + 1))

    @rpc(_returns=Lens)
    def getLens(ctx):
        return Lens(name="Tilt 24", focal=24, zoom=False)

    @rpc(Unicode, _returns=Unicode)
    def failWith(ctx, reason):
        raise Fault(faultcode="Server.Calibration", faultstring=reason, detail={"lens": "Tilt 24"})


def main():
    logging.basicConfig(level=logging.CRITICAL)
    QuietHandler = type("QuietHandler", (WSGIRequestHandler,), {"log_message": lambda self, *args: None})
    application = Application([InteropService], tns=NAMESPACE,
                              in_protocol=Soap11(validator=None), out_protocol=Soap11())
    server = make_server("127.0.0.1", 0, WsgiApplication(application), handler_class=QuietHandler)
    # Ends when the test process goes, even if it could not kill the server.
    threading.Thread(target=lambda: (sys.stdin.read(), os._exit(0)), daemon=True).start()
    print("PORT %d" % server.server_port, flush=True)
    server.serve_forever()


if __name__ == "__main__":
    sys.exit(main())
