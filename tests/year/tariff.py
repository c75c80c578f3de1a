"""What the gates of a driven year charge: the lines of their tables, and the same prices worked out here in exact decimals.

The prices have halves of a cent, a first hour, a day's ceiling and a least charge, so that stays of nearly every length differ.
"""
import collections
from decimal import ROUND_HALF_UP, Decimal

Stay = collections.namedtuple("Stay", "days hours minutes")

TARIFF = (
    " ",
    "AUTOMOVIL", "1M = 33,335*", "1H = 2000,1", "2H = 4000,2", "3H = 6000,3", "4H = 8000,4", "23H = 9500**", "1D = 9500*", " ",
    "MOTOCICLETA", "1M = 0**", "2M = 0", "15M = 250,5", "30M = 500,5", "59M = 900,25",
    "1H = 1000", "2H = 2000", "3H = 3000", "4H = 4000", "23H = 4500**", "1D = 4500*", " ",
    "BICICLETA", "1H = 700,333*", "1D = 3000,335*", " ",
    "CAMION", "15M = 1500", "30M = 2600,5", "60M = 3900,75", "1H = 4000", "4H = 3500*", "12H = 15000", "1D = 15000,005*", " ",
    "NOCTURNO", "0M = 12345,675", " ",
    "COMPRA MES AUTO", "0M = 300000", " ",
    "EMPLEADO", " ",
    "ACCESO MES AUTO", " ",
)
CATEGORIES = ("AUTOMOVIL", "MOTOCICLETA", "BICICLETA", "CAMION", "NOCTURNO", "COMPRA MES AUTO", "EMPLEADO", "ACCESO MES AUTO")

# Each gate sells its own. A price is a text as the table has it; the till takes its first two decimals, rounded.
ARTICLES = {
    "01": (("MINUTO CELULAR", "200"), ("CAFE COLOMBIANO", "5000"), ("CHICLE", "0,335"), ("CASCO MOTO", "120000"),
           ("BOTELLA AGUA", "4999,99")),
    "02": (("FOTOCOPIA", "100,5"), ("PAÑUELOS", "1234,565"), ("TARJETA PREPAGO", "10000"), ("AGUA", "2500")),
}

# What costs something else from time to time.
RISEN = {"CAFE COLOMBIANO": "5500,125", "CHICLE": "0,345", "FOTOCOPIA": "120,255", "AGUA": "2499,995"}


def price_list(gate, risen=False):
    """Names and prices, as typed."""
    return [(name, RISEN.get(name, price) if risen else price) for name, price in ARTICLES[gate]]


def cents(amount):
    """Rounded as a till does: half a cent goes up."""
    return amount.quantize(Decimal("0.01"), ROUND_HALF_UP)


def number(text):
    return Decimal(text.replace(",", "."))


def unit_prices(gate, risen=False):
    return {name: cents(number(price)) for name, price in price_list(gate, risen)}


def stay_between(entry, exit_):
    minutes = int((exit_ - entry).total_seconds()) // 60
    return Stay(minutes // 1440, minutes // 60 % 24, minutes % 60)


def automovil(stay):
    """Each minute beyond the hour; from the fifth hour on the price of a day, whatever the minutes."""
    days = stay.days * Decimal(9500)
    if stay.hours >= 5:
        return days + 9500
    return days + stay.hours * Decimal("2000.1") + stay.minutes * Decimal("33.335")


def motocicleta(stay):
    """A first hour is whole; later two minutes are free, and quarters and halves have their steps."""
    hours, minutes = stay.hours, stay.minutes
    if hours == 0 and minutes > 0:
        hours, minutes = 1, 0
    days = stay.days * Decimal(4500)
    if hours >= 5:
        return days + 4500
    steps = ((2, "0"), (15, "250.5"), (30, "500.5"), (59, "900.25"))
    return days + hours * Decimal(1000) + next(Decimal(price) for upto, price in steps if minutes <= upto)


def bicicleta(stay):
    """Whole hours and days; what is less costs nothing."""
    return stay.hours * Decimal("700.333") + stay.days * Decimal("3000.335")


def camion(stay):
    """The step of the minutes is charged always, on whole hours too."""
    minutes = Decimal("1500") if stay.minutes <= 15 else Decimal("2600.5") if stay.minutes <= 30 else Decimal("3900.75")
    if stay.hours == 0:
        hours = Decimal(0)
    elif stay.hours == 1:
        hours = Decimal(4000)
    else:
        hours = stay.hours * Decimal(3500) if stay.hours <= 4 else Decimal(15000)
    return minutes + hours + stay.days * Decimal("15000.005")


PRICES = {"AUTOMOVIL": automovil, "MOTOCICLETA": motocicleta, "BICICLETA": bicicleta, "CAMION": camion,
          "NOCTURNO": lambda stay: Decimal("12345.675"), "COMPRA MES AUTO": lambda stay: Decimal(300000)}


def has_price(category, stay):
    """False: the screen shows no value, and the stay costs nothing."""
    if category == "BICICLETA":
        return stay.hours > 0 or stay.days > 0
    return category in PRICES


def price(category, stay):
    return cents(PRICES[category](stay)) if has_price(category, stay) else Decimal("0.00")


def points(stay):
    """One for each whole quarter of an hour."""
    return stay.days * 96 + stay.hours * 4 + stay.minutes // 15
