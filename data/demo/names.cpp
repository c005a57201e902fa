#include "data/demo/names.h"

#include <array>

namespace demo {

namespace {

constexpr std::array FemaleNames{
    "Abena",   "Adriana",  "Aiko",      "Alma",      "Amara",     "Anaïs",    "Anneliese", "Aoife",    "Bao-Yu",
    "Beatriz", "Brigitte", "Camila",    "Chiara",    "Claire",    "Danika",   "Deborah",   "Dolores",  "Ebony",
    "Eleni",   "Emma",     "Esperanza", "Farah",     "Fatou",     "Gemma",    "Giulia",    "Grace",    "Hanneke",
    "Hannah",  "Ingrid",   "Irina",     "Jasmine",   "Joanna",    "Kateryna", "Keisha",    "Laila",    "Lakshmi",
    "Leilani", "Linh",     "Lucía",     "Maeve",     "Magdalena", "Mariam",   "Mary Ann",  "Mei",      "Mónica",
    "Nadia",   "Ngozi",    "Noor",      "Olivia",    "Parisa",    "Paula",    "Priya",     "Rachel",   "Rosalind",
    "Ruth",    "Saoirse",  "Selin",     "Shanice",   "Siobhán",   "Sofía",    "Soledad",   "Svetlana", "Tamika",
    "Teresa",  "Thandiwe", "Ursula",    "Valentina", "Vivian",    "Wren",     "Xiomara",   "Yasmin",   "Yolanda",
    "Zainab",  "Zoë",      "Zuzana"};

constexpr std::array MaleNames{
    "Aaron",   "Abdul",     "Adebayo", "Alejandro", "Anders",  "Andre",    "Ángel",     "Arjun",   "Benedikt", "Björn",
    "Brendan", "Caleb",     "Carlos",  "Cheng",     "Darius",  "Declan",   "Demetrius", "Diego",   "Dmitri",   "Edmund",
    "Elijah",  "Emeka",     "Emilio",  "Ezra",      "Farid",   "François", "Gabriel",   "Giorgos", "Hamza",    "Harold",
    "Hiroshi", "Ibrahim",   "Isaac",   "Jamal",     "Javier",  "Jean-Luc", "Jerome",    "Jin-Woo", "João",     "Jonah",
    "Julian",  "Kamal",     "Kofi",    "Lars",      "Leonard", "Luca",     "Malik",     "Marcus",  "Mateo",    "Micah",
    "Minh",    "Nathaniel", "Nikhil",  "Oleksandr", "Omar",    "Oscar",    "Patrick",   "Piotr",   "Quentin",  "Rafael",
    "Rashid",  "Raymond",   "Rodrigo", "Samir",     "Seamus",  "Sergei",   "Stefan",    "Tariq",   "Théo",     "Tomasz",
    "Tyrone",  "Victor",    "Wei",     "Yusuf",     "Zachary"};

constexpr std::array LastNames{
    "Abara",       "Abrams",      "Achterberg",   "Adeyemi",    "Albescu",        "Almquist",    "Ambrose",
    "Anaya",       "Ardagh",      "Asante",       "Avellaneda", "Bakshi",         "Balogun",     "Barrientos",
    "Bartholomew", "Beaulieu",    "Bell",         "Berglund",   "Bhandari",       "Blackwood",   "Boateng",
    "Bonaventura", "Braithwaite", "Brandt",       "Cabrera",    "Carvalho",       "Castellanos", "Chaudhry",
    "Chen",        "Cho",         "Chukwu",       "Coates",     "Colangelo",      "Cortez",      "Czerny",
    "D'Amico",     "D'Souza",     "Dalca",        "Dang",       "De la Cruz",     "Delacroix",   "Dhillon",
    "Dobrowolski", "Doukas",      "Dubois",       "Dufresne",   "Ebersole",       "Eklund",      "Escobedo",
    "Estévez",     "Fairbanks",   "Farahani",     "Ferreira",   "Fitzwilliam",    "Fontaine",    "Friedlander",
    "Gallagher",   "García",      "Gebremariam",  "Georgiou",   "Ghosh",          "Gill",        "Goldfarb",
    "González",    "Greenleaf",   "Gustafsson",   "Gutiérrez",  "Haddad",         "Halvorsen",   "Hargrove",
    "Hashimoto",   "Hawthorne",   "Herrera",      "Hoang",      "Holloway",       "Hossain",     "Ibáñez",
    "Igwe",        "Iyer",        "Jankowski",    "Jaramillo",  "Jokinen",        "Kaplan",      "Karimi",
    "Kaur",        "Keller",      "Khalil",       "Kim",        "Kirkpatrick",    "Kovač",       "Kowalczyk",
    "Kruger",      "Lachance",    "Laurent",      "Le",         "Lindqvist",      "Lombardi",    "López",
    "Lysenko",     "Maalouf",     "MacAllister",  "Mahoney",    "Mbeki-Oyelaran", "McBride",     "Medina",
    "Mehta",       "Mendoza",     "Mikkelsen",    "Molina",     "Moreau",         "Müller",      "Mwangi",
    "N'Diaye",     "Nakagawa",    "Navarro",      "Nguyen",     "Nielsen",        "Nowak",       "Núñez",
    "O'Brien",     "O'Hara",      "O'Rourke",     "Oduya",      "Okafor",         "Olivares",    "Osei",
    "Özdemir",     "Pacheco",     "Papadakis",    "Park",       "Patel",          "Pellegrino",  "Pereira",
    "Petrov",      "Phan",        "Pietrangelo",  "Quintana",   "Quirk",          "Rahman",      "Ramaswamy",
    "Rasmussen",   "Reyes",       "Rosenthal",    "Rousseau",   "Ruiz",           "Sadowski",    "Saelee",
    "Sandoval",    "Santos",      "Sarkisian",    "Schäfer",    "Schwartz",       "Sepúlveda",   "Shapiro",
    "Sharma",      "Sithole",     "Söderberg",    "St. Clair",  "Stavros",        "Suleiman",    "Szabó",
    "Takahashi",   "Tanaka",      "Thibodeaux",   "Thorne",     "Tran",           "Trujillo",    "Uddin",
    "Underhill",   "Valdez",      "Van der Meer", "Vargas",     "Vasquez",        "Villanueva",  "Volkov",
    "Wainwright",  "Wallin",      "Washington",   "Wexler",     "Whitfield",      "Winters",     "Wójcik",
    "Xiong",       "Yamamoto",    "Yang",         "Yilmaz",     "Zamora",         "Zhao",        "Zielinski"};

constexpr std::array LongLastNames{"Featherstonehaugh-Villanueva y Barrientos", "Papadimitrakopoulos-Schwarzenberger",
                                   "Venkatanarasimharajuvaripeta", "Van Wassenaer-Oyelaran de la Fuente"};

constexpr std::array Streets{"Alder",     "Birchwood", "Canal",   "Cedar Hill", "Chestnut", "Delaware",
                             "Elm Grove", "Fourth",    "Foundry", "Garfield",   "Harbor",   "Jefferson",
                             "Lakeview",  "Locust",    "Maple",   "Mill",       "Orchard",  "Parkside",
                             "Prairie",   "Quarry",    "Ridge",   "Sycamore",   "Vine",     "Walnut"};
constexpr std::array StreetKinds{"St", "Ave", "Rd", "Ln", "Ct", "Blvd", "Dr", "Way"};

struct City {
    const char* name;
    const char* zip;
};
constexpr std::array Cities{City{"Larkspur Falls", "53841"}, City{"Millbrook", "53842"},
                            City{"Harbor Point", "53847"},   City{"New Avon", "53850"},
                            City{"St. Odile", "53853"},      City{"Elm Grove Heights", "53858"},
                            City{"Quarry Bend", "53861"},    City{"Port Ransom", "53866"}};

template <typename Pool>
QString from(const Pool& pool, Random& random) {
    return QString::fromUtf8(random.pick(pool));
}

QString lastName(Random& random) {
    const int kind = random.between(1, 1000);
    if (kind <= 4)
        return from(LongLastNames, random);
    QString name = from(LastNames, random);
    if (kind > 70 || name.contains(QLatin1Char('-')))
        return name;
    const QString second = from(LastNames, random);
    return second == name ? name : name + QLatin1Char('-') + second;
}

}  // namespace

Person SomePerson(Random& random) {
    Person person;
    person.female = random.chance(54);
    person.first = person.female ? from(FemaleNames, random) : from(MaleNames, random);
    person.last = lastName(random);
    if (random.chance(45))
        person.middle = QString(QLatin1Char(static_cast<char>('A' + random.between(0, 25))));
    return person;
}

Address SomeAddress(Random& random) {
    const City& city = random.pick(Cities);
    Address address;
    address.street =
        QStringLiteral("%1 %2 %3")
            .arg(QString::number(random.between(1, 2999)), from(Streets, random), from(StreetKinds, random));
    if (random.chance(22))
        address.street += QStringLiteral("\r\nApt. %1").arg(random.between(1, 48));
    address.city = QString::fromUtf8(city.name);
    address.state = QStringLiteral("WI");
    address.zip = QString::fromUtf8(city.zip);
    return address;
}

QString SomePhone(Random& random, bool extension) {
    static constexpr std::array AreaCodes{"414", "262", "608", "920"};
    QString digits =
        from(AreaCodes, random) + QStringLiteral("555%1").arg(random.between(100, 9999), 4, 10, QLatin1Char('0'));
    if (extension)
        digits += QString::number(random.between(10, 9999));
    return digits;
}

QString PhoneText(const QString& digits) {
    if (digits.size() < 10)
        return digits;
    const QString number = QStringLiteral("(%1) %2-%3").arg(digits.left(3), digits.mid(3, 3), digits.mid(6, 4));
    return digits.size() == 10 ? number : number + QLatin1Char(' ') + digits.mid(10);
}

QString DisplayName(const Person& person) {
    const QString name = person.last + QStringLiteral(", ") + person.first;
    return person.middle.isEmpty() ? name : name + QLatin1Char(' ') + person.middle + QLatin1Char('.');
}

QString SomeEmail(const Person& person, Random& random) {
    QString name;
    const QString plain = (person.first.left(1) + person.last).normalized(QString::NormalizationForm_D).toLower();
    for (const QChar c : plain) {
        if ((c >= QLatin1Char('a') && c <= QLatin1Char('z')) || c == QLatin1Char('-'))
            name += c;
    }
    return QStringLiteral("%1%2@mail.example").arg(name.left(24)).arg(random.between(1, 99));
}

}  // namespace demo
